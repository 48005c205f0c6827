# Cost of one host request through the client wrappers, against a function
# map that answers at once: what the door itself adds to every point sent.
if(NOT TARGET benchmark::benchmark)
  find_package(benchmark REQUIRED)
endif()
add_executable(bench_hostapi_door ${CMAKE_CURRENT_LIST_DIR}/hostapi_door_bench.cpp)
target_compile_options(bench_hostapi_door PRIVATE ${ORV_WARNINGS})
target_link_libraries(bench_hostapi_door PRIVATE hostapi core benchmark::benchmark)
