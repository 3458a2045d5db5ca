# Icon, version and manifest of the program file.
enable_language(RC)
set(source ${PROJECT_SOURCE_DIR}/packaging/windows)
configure_file(${source}/pelvanto.manifest.in pelvanto.manifest @ONLY)
configure_file(${source}/pelvanto.rc.in pelvanto.rc @ONLY)
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/pelvanto.rc PROPERTIES OBJECT_DEPENDS
  "${CMAKE_CURRENT_BINARY_DIR}/pelvanto.manifest;${PROJECT_SOURCE_DIR}/assets/icons/pelvanto.ico")
target_sources(Pelvanto PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/pelvanto.rc)
