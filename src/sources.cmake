# The library's sources, by layer. The frame in CMakeLists.txt compiles them.
set(STEPRT_SOURCES
    support/file_name.cpp
    support/number.cpp
    support/number_map.cpp
    support/text_buffer.cpp
    platform/posix/clock.cpp
    platform/posix/file_calls.cpp
    platform/posix/input_file.cpp
    platform/posix/message_box.cpp
    platform/posix/modules.cpp
    platform/posix/output_file.cpp
    schema/chain.cpp
    schema/expand.cpp
    schema/index.cpp
    schema/library.cpp
    schema/lookup.cpp
    schema/lookup_cache.cpp
    model/aggregate.cpp
    model/copy.cpp
    model/current_model.cpp
    model/instance.cpp
    model/model.cpp
    model/model_index.cpp
    model/model_library.cpp
    model/model_schema.cpp
    model/select.cpp
    model/string.cpp
    model/type_queries.cpp
    read/number_index.cpp
    read/transfer.cpp
    read/report.cpp
    read/instance_table.cpp
    read/fixups.cpp
    read/tokeniser.cpp
    read/sections.cpp
    read/header_section.cpp
    read/data_section.cpp
    read/file_reader.cpp
    read/attribute.cpp
    read/scalars.cpp
    read/reference.cpp
    read/references.cpp
    read/list_builder.cpp
    read/lists.cpp
    write/record_loop.cpp
    write/frame.cpp
    write/file_writer.cpp
    write/values.cpp
    write/scalars.cpp
    write/references.cpp
    write/lists.cpp
    model/model_transfer.cpp
    exports/entry_table.cpp
    exports/load_hook.cpp)

# The SAX service. Which list is compiled is what the option STEPRT_XML says: ON takes Expat's side, OFF a stand-in that
# has no reader to give.
set(STEPRT_XML_SOURCES)     # platform/expat/*.cpp
set(STEPRT_NO_XML_SOURCES)  # platform/no_sax.cpp
