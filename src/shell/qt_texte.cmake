# Where Qt is linked in, so are its German texts: those of this machine's Qt, which is of the same version.
get_target_property(qt_type Qt6::Core TYPE)
if(qt_type STREQUAL "STATIC_LIBRARY")
  set(qt_texte /usr/share/qt6/translations/qtbase_de.qm)
  set_source_files_properties(${qt_texte} PROPERTIES QT_RESOURCE_ALIAS qtbase_de.qm)
  qt_add_resources(pelvanto_shell qt_texte PREFIX / FILES ${qt_texte})
endif()
