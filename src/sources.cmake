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
    platform/posix/output_file.cpp
    schema/index.cpp
    schema/lookup.cpp
    schema/lookup_cache.cpp
    model/aggregate.cpp
    model/copy.cpp
    model/current_model.cpp
    model/instance.cpp
    model/model.cpp
    model/model_index.cpp
    model/model_schema.cpp
    model/select.cpp)

# The SAX service. Which list is compiled is what the option STEPRT_XML says: ON takes Expat's side, OFF a stand-in that
# has no reader to give.
set(STEPRT_XML_SOURCES)     # platform/expat/*.cpp
set(STEPRT_NO_XML_SOURCES)  # platform/no_sax.cpp
