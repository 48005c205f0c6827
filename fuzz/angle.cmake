# The angle text reader on arbitrary bytes, with everything that is read
# written back out in every form and read again.
add_executable(angle_fuzz ${CMAKE_CURRENT_LIST_DIR}/angle_fuzz.cpp)
target_link_libraries(angle_fuzz PRIVATE core)
target_link_options(angle_fuzz PRIVATE -fsanitize=fuzzer)
