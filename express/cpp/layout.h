// Pieces of text that the printers share.
#ifndef STEPRT_EXPRESS_CPP_LAYOUT_H
#define STEPRT_EXPRESS_CPP_LAYOUT_H

#include <string>
#include <string_view>
#include <vector>

namespace express::cpp {

// A declaration as comment lines. A character outside of ASCII becomes '?', and nothing continues a comment line.
std::string Comment(std::string_view text);

std::string Quoted(std::string_view text);

// Texts, joined by commas, in lines of at most 120 columns that begin with the indent. No line feed ends the last one.
std::string Joined(const std::vector<std::string>& items, const std::string& indent);

// "a::b" as part of a file's name: "a_b".
std::string FileStem(const std::string& nameSpace);

}  // namespace express::cpp

#endif
