# The OTH Gold message parser on arbitrary bytes: no crash, every field
# reader answers a code, and a message written back reads to the same text,
# also once cut to network lines.
add_executable(oth_fuzz ${CMAKE_CURRENT_LIST_DIR}/oth_fuzz.cpp)
target_link_libraries(oth_fuzz PRIVATE othlib)
target_link_options(oth_fuzz PRIVATE -fsanitize=fuzzer)
