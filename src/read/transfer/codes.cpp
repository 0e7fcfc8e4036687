#include "read/transfer/codes.h"

#include <cstring>

#include "read/transfer/messages.h"

namespace steprt {
namespace {

constexpr MessageCode kCodes[] = {
    {kFileNotFound, "file-not-found", STEP_ERROR},
    {kNotAStepFile, "not-a-step-file", STEP_ERROR},
    {kMissingEndsec, "missing-endsec", STEP_ERROR},
    {kMissingSection, "missing-section", STEP_ERROR},
    {kWrongSchema, "wrong-schema", STEP_ERROR},
    {kUnexpectedEof, "unexpected-end", STEP_ERROR},
    {kTooLong, "too-long", STEP_ERROR},
    {kUnterminatedText, "open-text", STEP_ERROR},
    {kUnknownEntity, "unknown-entity", STEP_WARNING},
    {kSyntaxErrorIn, "header-syntax", STEP_ERROR},
    {kSyntax, "syntax", STEP_ERROR},
    {kNumberUsed, "doubled-name", STEP_ERROR},
    {kMissingText, "missing-text", STEP_ERROR},
    {kMissingInteger, "missing-integer", STEP_ERROR},
    {kMissingReal, "missing-real", STEP_ERROR},
    {kMissingBool, "missing-boolean", STEP_ERROR},
    {kMissingLogical, "missing-logical", STEP_ERROR},
    {kMissingEnumeration, "missing-enumerator", STEP_ERROR},
    {kUnknownBool, "unknown-boolean", STEP_ERROR},
    {kUnknownLogical, "unknown-logical", STEP_ERROR},
    {kUnknownEnumeration, "unknown-enumerator", STEP_ERROR},
    {kMissingReference, "missing-reference", STEP_ERROR},
    {kMissingPrimitive, "missing-item", STEP_ERROR},
    {kMissingTextInList, "missing-text-in-list", STEP_ERROR},
    {kUnknownReference, "dangling-reference", STEP_ERROR},
    {kReferenceToNothing, "reference-to-nothing", STEP_ERROR},
    {kReferenceToWrongType, "wrong-reference", STEP_ERROR},
    {kUnterminatedComment, "open-comment", STEP_ERROR},
    {kUnterminatedBinary, "open-binary", STEP_ERROR},
    {kIntegerOutOfRange, "integer-out-of-range", STEP_ERROR},
    {kInvalidName, "bad-name", STEP_ERROR},
    {kNameOutOfRange, "large-name", STEP_ERROR},
    {kMissingRid, "missing-rid", STEP_ERROR},
    {kNotWellFormed, "not-well-formed", STEP_ERROR},
    {kNoXmlService, "no-xml", STEP_ERROR},
    {kSectionNotRead, "section-not-read", STEP_WARNING},
    {kCancelled, "cancelled", STEP_ERROR},
    {kTooDeep, "too-deep", STEP_ERROR},
    {kOutOfMemory, "out-of-memory", STEP_ERROR},
};

constexpr MessageCode kRefused = {nullptr, "refused-value", STEP_ERROR};

}  // namespace

const MessageCode& CodeOf(const char* message) {
  for (const MessageCode& code : kCodes) {
    if (std::strcmp(code.message, message) == 0) return code;
  }
  return kRefused;
}

}  // namespace steprt
