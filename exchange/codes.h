// What a report can be about.
#ifndef STEPRT_EXCHANGE_CODES_H
#define STEPRT_EXCHANGE_CODES_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace exchange {

enum class Severity : std::uint8_t { kError, kWarning };

// Stable: programs may compare the names that CodeName returns. Each code has one severity.
enum class Code : std::uint8_t {
  // The grammar
  kSyntax,         // syntax: the grammar wants another token
  kMissingPart,    // missing-part: a section, or the first or last line of the file, is missing or out of order
  kBadCharacter,   // bad-character: a character that starts no token
  kOpenComment,    // open-comment: no */ for a /*
  kOpenText,       // open-text: no ' ends a text
  kBadNumber,      // bad-number: an integer or a real in another form
  kLargeName,      // large-name: an instance name beyond 64 bits
  kBadEnumerator,  // bad-enumerator: no second point, or another character between the points
  kBadBinary,      // bad-binary: no digit 0 to 3 first, another character, or no second quote
  kBadDirective,   // bad-directive: \ in a text without a directive that ISO 10303-21 has
  kHeader,         // header: an entity of the header is missing, out of order or has other attributes
  // What readers take, against the letter
  kByteOrderMark,  // byte-order-mark
  kLowerCase,      // lower-case: in a keyword, an enumerator, an exponent or a directive
  kRawCharacter,   // raw-character: a byte above 7E, or another control character than a line end, in a text
  kHeaderOmitted,  // header-omitted: $ in the header
  kAfterEnd,       // after-end: something follows END-ISO-10303-21
  // Names
  kDoubledName,        // doubled-name: two records have one instance name
  kDanglingReference,  // dangling-reference: no record has the name
  // The schema
  kUnknownEntity,      // unknown-entity
  kAbstractEntity,     // abstract-entity: an instance needs a subtype of it
  kAttributeCount,     // attribute-count
  kWrongKind,          // wrong-kind: a value of another kind
  kWrongReference,     // wrong-reference: an instance of another type
  kWrongSelect,        // wrong-select: what the select does not have
  kUnknownEnumerator,  // unknown-enumerator
  kAggregateSize,      // aggregate-size: fewer or more values than the bounds allow
  kMissingValue,       // missing-value: $ for what is not optional
  kNotDerived,         // not-derived: * for what is not derived
  kDerivedValue,       // derived-value: a value for what is derived
  kMissingPartOf,      // missing-supertype: a complex instance lacks a supertype of a part
  kDoubledPart,        // doubled-part: a complex instance has an entity twice
  kCombination,        // wrong-combination: the schema does not allow these parts in one instance
  kPartOrder,          // part-order: parts are not in the order of the alphabet
  kIntegerForReal,     // integer-for-real: an integer without a point where a real is declared
  kUserDefined,        // user-defined: an entity that no schema has, with a leading !
  kSchemaDiffers,      // schema-differs: FILE_SCHEMA names none of the schemas at hand
  kCount,
};

inline constexpr std::size_t kCodes = static_cast<std::size_t>(Code::kCount);

std::string_view CodeName(Code code);
Severity SeverityOf(Code code);
std::string_view SeverityName(Severity severity);

}  // namespace exchange

#endif
