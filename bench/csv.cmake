# SCORE range files: a generator of a large deterministic file (position
# records of many tracks) and a reader-only load into the document.
# bench/csv_bench.sh times them through scenario-host against an awk pass.
add_executable(csv_generate ${CMAKE_CURRENT_LIST_DIR}/csv_generate.cpp)
target_compile_options(csv_generate PRIVATE ${ORV_WARNINGS})
set_target_properties(csv_generate PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
add_executable(csv_read ${CMAKE_CURRENT_LIST_DIR}/csv_read.cpp)
target_compile_options(csv_read PRIVATE ${ORV_WARNINGS})
target_link_libraries(csv_read PRIVATE csvlib document datatable core)
set_target_properties(csv_read PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
