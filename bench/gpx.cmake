# A large GPX file for bench/gpx_bench.sh, which times its load through
# scenario-host against gpsbabel reading the same file.
add_executable(gpx_generate ${CMAKE_CURRENT_LIST_DIR}/gpx_generate.cpp)
target_compile_options(gpx_generate PRIVATE ${ORV_WARNINGS})
set_target_properties(gpx_generate PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
