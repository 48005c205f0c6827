# The GPX, PET and WAM readers on arbitrary file contents: no crash, no leak,
# and what reaches the document holds together.
foreach(reader gpx pet wam)
  add_executable(${reader}_fuzz ${CMAKE_CURRENT_LIST_DIR}/${reader}_fuzz.cpp)
  target_link_libraries(${reader}_fuzz PRIVATE importers)
  target_link_options(${reader}_fuzz PRIVATE -fsanitize=fuzzer)
endforeach()
