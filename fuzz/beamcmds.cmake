# libFuzzer target of the beam and gate commands: any lines through the
# platform, beam and gate families against the reference host.
add_executable(beamcmds_fuzz ${CMAKE_CURRENT_LIST_DIR}/beamcmds_fuzz.cpp)
target_link_libraries(beamcmds_fuzz PRIVATE asihost asi pipeline refhost hostapi core)
target_link_options(beamcmds_fuzz PRIVATE -fsanitize=fuzzer)
