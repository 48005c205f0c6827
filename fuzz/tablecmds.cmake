# libFuzzer target of the data-table commands: any lines through the
# platform and data-table families against the reference host.
add_executable(tablecmds_fuzz ${CMAKE_CURRENT_LIST_DIR}/tablecmds_fuzz.cpp)
target_link_libraries(tablecmds_fuzz PRIVATE asihost asi pipeline refhost datatable hostapi core)
target_link_options(tablecmds_fuzz PRIVATE -fsanitize=fuzzer)
