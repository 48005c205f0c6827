# Whole loads through scenario-host: a generator of a large deterministic
# scenario (100 platforms, PlatformData lines in degrees with orientation and
# speed). bench/load_bench.sh times the loads against an awk pass.
add_executable(load_generate ${CMAKE_CURRENT_LIST_DIR}/load_generate.cpp)
target_compile_options(load_generate PRIVATE ${ORV_WARNINGS})
set_target_properties(load_generate PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
