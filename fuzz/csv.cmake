# libFuzzer target of the SCORE/PMRF range-file reader.
add_executable(csv_fuzz ${CMAKE_CURRENT_LIST_DIR}/csv_fuzz.cpp)
target_link_libraries(csv_fuzz PRIVATE csvlib document datatable core)
target_link_options(csv_fuzz PRIVATE -fsanitize=fuzzer)
