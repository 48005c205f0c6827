# The time-text readers on arbitrary bytes: only TimeException may escape,
# whatever is read must print in every format and read back to the same time,
# and stamps built from arbitrary numbers must stay inside their range.
add_executable(time_fuzz ${CMAKE_CURRENT_LIST_DIR}/time_fuzz.cpp)
target_link_libraries(time_fuzz PRIVATE core)
target_link_options(time_fuzz PRIVATE -fsanitize=fuzzer)
