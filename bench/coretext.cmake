# The text layer of the core: number validation, tokenizers, quote handling
# and number formatting, the per-token work of every reader and writer.
if(NOT TARGET benchmark::benchmark)
  find_package(benchmark REQUIRED)
endif()
add_executable(coretext_bench ${CMAKE_CURRENT_LIST_DIR}/coretext_bench.cpp)
target_compile_options(coretext_bench PRIVATE ${ORV_WARNINGS})
target_link_libraries(coretext_bench PRIVATE core benchmark::benchmark)
