# The scenario document and its data tables: platform states inserted and
# interpolated in bulk, and a large table filled column by column.
add_executable(bench_document ${CMAKE_CURRENT_LIST_DIR}/document_bench.cpp)
target_compile_options(bench_document PRIVATE ${ORV_WARNINGS})
target_link_libraries(bench_document PRIVATE document datatable hostapi core)
