# The scenario provider and the append resolvers: parking and release of
# commands, time normalisation, and metadata matching against a host that
# already holds many platforms.
if(NOT TARGET benchmark::benchmark)
  find_package(benchmark REQUIRED)
endif()
add_executable(bench_provider ${CMAKE_CURRENT_LIST_DIR}/provider_bench.cpp)
target_compile_options(bench_provider PRIVATE ${ORV_WARNINGS})
target_link_libraries(bench_provider PRIVATE asihost asi pipeline refhost hostapi core benchmark::benchmark)
