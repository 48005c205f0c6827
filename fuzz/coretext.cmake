# The text layer of the core on arbitrary bytes: numbers, tokenizers, quotes,
# paths and formatting must neither crash nor break their own invariants.
add_executable(coretext_fuzz ${CMAKE_CURRENT_LIST_DIR}/coretext_fuzz.cpp)
target_link_libraries(coretext_fuzz PRIVATE core)
target_link_options(coretext_fuzz PRIVATE -fsanitize=fuzzer)
