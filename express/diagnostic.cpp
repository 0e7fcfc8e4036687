#include "diagnostic.h"

#include <algorithm>
#include <utility>

namespace express {

namespace {

std::string_view SeverityName(Severity severity) {
  switch (severity) {
    case Severity::kError:
      return "error";
    case Severity::kWarning:
      return "warning";
    case Severity::kNote:
      return "note";
  }
  return "";
}

// The line with its caret. Control characters become blanks, so that the caret is under its character.
std::string LineAndCaret(const Place& place) {
  const Excerpt excerpt = ExcerptAt(place.source->Text(), place.offset);
  std::string text(excerpt.text);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
  return "  " + text + "\n  " + std::string(excerpt.caret, ' ') + "^\n";
}

}  // namespace

std::string_view CodeName(Code code) {
  switch (code) {
    case Code::kUnreadableFile:
      return "unreadable-file";
    case Code::kLongText:
      return "long-text";
    case Code::kBadCharacter:
      return "bad-character";
    case Code::kOpenRemark:
      return "open-remark";
    case Code::kOpenText:
      return "open-text";
    case Code::kBadLiteral:
      return "bad-literal";
    case Code::kSyntax:
      return "syntax";
    case Code::kTooDeep:
      return "too-deep";
    case Code::kTooManyErrors:
      return "too-many-errors";
    case Code::kDuplicateName:
      return "duplicate-name";
    case Code::kUnknownSchema:
      return "unknown-schema";
    case Code::kUnknownName:
      return "unknown-name";
    case Code::kWrongKind:
      return "wrong-kind";
    case Code::kSupertypeRing:
      return "supertype-ring";
    case Code::kTypeRing:
      return "type-ring";
    case Code::kSelectRing:
      return "select-ring";
    case Code::kUnknownAttribute:
      return "unknown-attribute";
    case Code::kNotSupertype:
      return "not-supertype";
    case Code::kNotSubtype:
      return "not-subtype";
    case Code::kNotExtensible:
      return "not-extensible";
    case Code::kTooLarge:
      return "too-large";
  }
  return "";
}

std::string Format(const Diagnostic& diagnostic) {
  std::string text;
  if (diagnostic.place.source != nullptr) {
    const Position position = diagnostic.place.source->PositionAt(diagnostic.place.offset);
    text += diagnostic.place.source->Name() + ":" + std::to_string(position.line) + ":" +
            std::to_string(position.column) + ": ";
  }
  text.append(SeverityName(diagnostic.severity)).append(": ").append(diagnostic.message);
  if (diagnostic.severity != Severity::kNote) text.append(" [").append(CodeName(diagnostic.code)).append("]");
  text += "\n";
  if (diagnostic.place.source != nullptr) text += LineAndCaret(diagnostic.place);
  return text;
}

void Diagnostics::Error(Place place, Code code, std::string message) {
  if (full_) return;
  ++errors_;
  Add(Severity::kError, place, code, std::move(message));
  if (errors_ < maxErrors_) return;
  Add(Severity::kError, place, Code::kTooManyErrors, "too many errors, the rest is not looked at");
  full_ = true;
}

void Diagnostics::Warning(Place place, Code code, std::string message) {
  Add(Severity::kWarning, place, code, std::move(message));
}

void Diagnostics::Note(Place place, std::string message) {
  if (!all_.empty()) Add(Severity::kNote, place, all_.back().code, std::move(message));
}

void Diagnostics::Add(Severity severity, Place place, Code code, std::string message) {
  // Warnings and notes are bounded too: each error has at most one note.
  if (full_ || all_.size() >= 3 * maxErrors_) return;
  all_.push_back({severity, code, place, std::move(message)});
}

}  // namespace express
