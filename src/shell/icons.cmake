# The pictures of the buttons and of the program, compiled in.
file(GLOB icons CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/assets/icons/png/*.png)
foreach(icon ${icons})
  get_filename_component(name ${icon} NAME)
  set_source_files_properties(${icon} PROPERTIES QT_RESOURCE_ALIAS icons/${name})
endforeach()
qt_add_resources(pelvanto_shell icons PREFIX / FILES ${icons})
