// The names in a standard file in XML that no entity or attribute has: they have a dot, or begin with "_".
#ifndef STEPRT_XML_VALUES_NAMES_H
#define STEPRT_XML_VALUES_NAMES_H

namespace steprt {

inline constexpr char kComplexElement[] = "complex.instance";  // its elements are the parts
inline constexpr char kHeaderElement[] = "header.section";     // its elements are the records of the header
inline constexpr char kUserDefinedPrefix[] = "user-defined.";  // before a keyword, in place of its "!"
inline constexpr char kUnnamedElement[] = "_";                 // a value that has no name
inline constexpr char kFormAttribute[] = "iso-10303-21";       // of the root
inline constexpr char kFormOfValues[] = "clear-text";          // its value: elements have values in clear text

}  // namespace steprt

#endif
