// What is wrong with a text, in the form of a compiler's messages:
//
//   plan.exp:3:17: error: expected OPTIONAL or a type, found ';' [syntax]
//      name :       ;
//                   ^
#ifndef STEPRT_EXPRESS_DIAGNOSTIC_H
#define STEPRT_EXPRESS_DIAGNOSTIC_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "source.h"

namespace express {

enum class Severity { kError, kWarning, kNote };  // a note explains the diagnostic before it

// Stable: programs may compare the names that CodeName returns.
enum class Code {
  kUnreadableFile,    // unreadable-file: a file cannot be opened or read
  kLongText,          // long-text: a source exceeds Limits::textBytes
  kBadCharacter,      // bad-character: a character that starts no token
  kOpenRemark,        // open-remark: no *) for a (*
  kOpenText,          // open-text: a string literal does not end on its line
  kBadLiteral,        // bad-literal: an encoded string or a binary literal with wrong digits
  kSyntax,            // syntax: the grammar wants another token
  kTooDeep,           // too-deep: Limits::depth
  kTooManyErrors,     // too-many-errors: Limits::errors
  kDuplicateName,     // duplicate-name: a name is declared twice in one scope
  kUnknownSchema,     // unknown-schema: no source has the schema that is interfaced
  kUnknownName,       // unknown-name: nothing of this name is declared or interfaced
  kWrongKind,         // wrong-kind: the name belongs to a declaration of another kind
  kSupertypeRing,     // supertype-ring: an entity is its own supertype
  kTypeRing,          // type-ring: a defined type is its own underlying or element type
  kSelectRing,        // select-ring: a select is its own member
  kUnknownAttribute,  // unknown-attribute: the entity has no such attribute
  kNotSupertype,      // not-supertype: an attribute of an entity that is no supertype is redeclared
  kNotSubtype,        // not-subtype: a supertype expression names an entity that is no subtype
  kNotExtensible,     // not-extensible: BASED_ON names a type that cannot be extended
  kTooLarge,          // too-large: Limits::steps
};

std::string_view CodeName(Code code);

struct Diagnostic {
  Severity severity = Severity::kError;
  Code code = Code::kSyntax;
  Place place;
  std::string message;
};

// One message with its line of source and a caret; a long line is cropped around the place. Ends with a line feed.
std::string Format(const Diagnostic& diagnostic);

// Collects diagnostics up to a limit of errors. The last one then says so, and later ones are dropped, so that a broken
// text costs no more memory than the limit allows.
class Diagnostics {
 public:
  explicit Diagnostics(std::size_t maxErrors = 100) : maxErrors_(maxErrors) {}

  void Error(Place place, Code code, std::string message);
  void Warning(Place place, Code code, std::string message);
  // Explains the diagnostic that was added last.
  void Note(Place place, std::string message);

  const std::vector<Diagnostic>& All() const { return all_; }
  std::size_t Errors() const { return errors_; }
  // True after the limit. Whoever reads a text then stops.
  bool Full() const { return full_; }

 private:
  void Add(Severity severity, Place place, Code code, std::string message);

  std::vector<Diagnostic> all_;
  std::size_t maxErrors_;
  std::size_t errors_ = 0;
  bool full_ = false;
};

}  // namespace express

#endif
