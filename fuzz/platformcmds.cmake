# libFuzzer target of the platform commands: any lines through the platform
# family against the reference host.
add_executable(platformcmds_fuzz ${CMAKE_CURRENT_LIST_DIR}/platformcmds_fuzz.cpp)
target_link_libraries(platformcmds_fuzz PRIVATE asihost asi pipeline refhost hostapi core)
target_link_options(platformcmds_fuzz PRIVATE -fsanitize=fuzzer)
