# PlatformData, the line of which big files are made: stage 1 alone (with its
# heap allocations counted), stage 1 with the host call, and whole files
# through the read engine and the keyword table.
if(NOT TARGET benchmark::benchmark)
  find_package(benchmark REQUIRED)
endif()
add_executable(bench_platformcmds ${CMAKE_CURRENT_LIST_DIR}/platformcmds_bench.cpp)
target_compile_options(bench_platformcmds PRIVATE ${ORV_WARNINGS})
target_link_libraries(bench_platformcmds PRIVATE asihost asi pipeline refhost hostapi core benchmark::benchmark)
