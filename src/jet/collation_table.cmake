# Turns data/jet-sort-general.tsv into rows of C++ that collation_table.cpp includes. Included while
# configuring it states the build step; run with `cmake -P` it is that step.
if(NOT CMAKE_SCRIPT_MODE_FILE)
  set(collation_script ${CMAKE_CURRENT_LIST_FILE})
  set(collation_data ${CMAKE_CURRENT_LIST_DIR}/data/jet-sort-general.tsv)
  set(collation_folder ${CMAKE_CURRENT_BINARY_DIR}/jet_generated)
  set(collation_rows ${collation_folder}/collation_rows.inc)
  add_custom_command(
    OUTPUT ${collation_rows}
    COMMAND ${CMAKE_COMMAND} -D "DATA=${collation_data}" -D "ROWS=${collation_rows}" -P ${collation_script}
    DEPENDS ${collation_data} ${collation_script}
    COMMENT "Weights of the collation"
    VERBATIM)
  target_sources(pelvanto_jet PRIVATE ${collation_rows})
  target_include_directories(pelvanto_jet PRIVATE ${collation_folder})
  set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/collation_table.cpp PROPERTIES
                              OBJECT_DEPENDS ${collation_rows})
  return()
endif()

# One row: {unit, class, {primary}, primaryLength, {second}, secondLength, classJet3, {primary}, length, nibble}.
# `second` holds accent bytes, a modifier's value, or the code of an unprintable character.
function(collation_bytes text bytes length)
  string(REGEX MATCHALL "[0-9A-F][0-9A-F]" pairs "${text}")
  list(LENGTH pairs count)
  list(TRANSFORM pairs PREPEND "0x")
  list(JOIN pairs ", " joined)
  set(${bytes} "{${joined}}" PARENT_SCOPE)
  set(${length} ${count} PARENT_SCOPE)
endfunction()

set(classes_simple Simple)
set(classes_international International)
set(classes_unprintable Unprintable)
set(classes_modifier Modifier)
set(classes_ignored Ignored)
set(classes_jet3_simple Simple)
set(classes_jet3_slot Slot)
set(classes_jet3_slot2 TwoSlots)
set(classes_jet3_accent Accent)
set(classes_jet3_ None)

set(hex "[0-9A-F]*")
file(STRINGS "${DATA}" lines REGEX "^[0-9A-F]+\t" ENCODING UTF-8)
set(rows "")
foreach(line IN LISTS lines)
  if(NOT line MATCHES
     "^(${hex})\t([a-z]+)\t(${hex})\t(${hex})\t(${hex})\t\t([a-z0-9]*)\t(${hex})\t(${hex})\t")
    message(FATAL_ERROR "${DATA}: not understood: ${line}")
  endif()
  set(unit "0x${CMAKE_MATCH_1}")
  set(class "${classes_${CMAKE_MATCH_2}}")
  set(primary "${CMAKE_MATCH_3}")
  set(second "${CMAKE_MATCH_4}${CMAKE_MATCH_5}")
  set(class3 "${classes_jet3_${CMAKE_MATCH_6}}")
  set(primary3 "${CMAKE_MATCH_7}")
  set(nibble "0x0${CMAKE_MATCH_8}")
  if(class STREQUAL "" OR class3 STREQUAL "")
    message(FATAL_ERROR "${DATA}: unknown class: ${line}")
  endif()
  collation_bytes("${primary}" primary primary_length)
  collation_bytes("${second}" second second_length)
  collation_bytes("${primary3}" primary3 length3)
  string(APPEND rows "{${unit}, {Class::${class}, ${primary_length}, ${second_length}, ${primary}, ${second}}, "
         "{ClassJet3::${class3}, ${length3}, ${nibble}, ${primary3}}},\n")
endforeach()
file(WRITE "${ROWS}" "${rows}")
