# The reference host: cost and memory of platform points sent through the
# door into the in-memory scenario (full and no-data), and of the dump.
if(NOT TARGET benchmark::benchmark)
  find_package(benchmark REQUIRED)
endif()
add_executable(bench_refhost ${CMAKE_CURRENT_LIST_DIR}/refhost_bench.cpp)
target_compile_options(bench_refhost PRIVATE ${ORV_WARNINGS})
target_link_libraries(bench_refhost PRIVATE refhost hostapi core benchmark::benchmark)
