# libFuzzer targets of the read spine: the rules of a line, and the read
# engine over arbitrary file contents.
foreach(target spine_fuzz_line spine_fuzz_engine)
  add_executable(${target} ${CMAKE_CURRENT_LIST_DIR}/${target}.cpp)
  target_link_libraries(${target} PRIVATE pipeline hostapi core)
  target_link_options(${target} PRIVATE -fsanitize=fuzzer)
endforeach()
