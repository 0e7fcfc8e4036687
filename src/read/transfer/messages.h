// Every text of a transfer that a user can see. Each is written here and nowhere else. Those of reads have a code in
// codes.cpp.
#ifndef STEPRT_READ_TRANSFER_MESSAGES_H
#define STEPRT_READ_TRANSFER_MESSAGES_H

namespace steprt {

inline constexpr char kReportCaption[] = "STEP error";
inline constexpr char kMemoryName[] = "memory";  // of a file that has no name
inline constexpr char kNoXmlService[] = "Msxml3 is not installed on this computer";

// Files and sections.
inline constexpr char kFileNotFound[] = "File not found";
inline constexpr char kCannotCreateFile[] = "Can't create file";
inline constexpr char kErrorWritingFile[] = "error writing file";
inline constexpr char kNotAStepFile[] = "Not a STEP file";
inline constexpr char kMissingEndsec[] = "Missing ENDSEC";
inline constexpr char kMissingSection[] = "Missing section";
inline constexpr char kWrongSchema[] = "Data does not belong to schema '%s'";

// Tokens.
inline constexpr char kUnexpectedEof[] = "Unexpected EOF";
inline constexpr char kTooLong[] = "Too long element, truncated";
inline constexpr char kUnterminatedText[] = "Unterminated textstring";

// Records.
inline constexpr char kUnknownEntity[] = "Unknown entity %s";
inline constexpr char kSyntaxErrorIn[] = "Syntax error in: %s";
inline constexpr char kSyntax[] = "Syntax";
inline constexpr char kNumberUsed[] = "Entity #%d already used";
inline constexpr char kUnknownObject[] = "Unknown STEP object";
inline constexpr char kMissingRid[] = "Missing entity 'Rid'";

// Attributes.
inline constexpr char kMissingText[] = "Missing text";
inline constexpr char kMissingInteger[] = "Missing integer";
inline constexpr char kMissingReal[] = "Missing real";
inline constexpr char kMissingBool[] = "Missing bool";
inline constexpr char kMissingLogical[] = "Missing logical";
inline constexpr char kMissingEnumeration[] = "Missing enumeration";
inline constexpr char kUnknownBool[] = "Unknown bool '%s'";
inline constexpr char kUnknownLogical[] = "Unknown logical '%s'";
inline constexpr char kUnknownEnumeration[] = "Unknown enumeration '%s'";
inline constexpr char kMissingReference[] = "Missing reference";
inline constexpr char kMissingPrimitive[] = "Missing primitive in list";
inline constexpr char kMissingTextInList[] = "Missing text in list";

// References.
inline constexpr char kUnknownReference[] = "Unknown reference #%d";
inline constexpr char kReferenceToNothing[] = "Reference to unknown object #%d";
inline constexpr char kReferenceToWrongType[] = "Reference to wrong object type '%s'";

// Only in a read of ISO 10303-21 as it is published.
inline constexpr char kUnterminatedComment[] = "Unterminated comment";
inline constexpr char kUnterminatedBinary[] = "Unterminated binary";
inline constexpr char kIntegerOutOfRange[] = "Integer out of range";
inline constexpr char kInvalidName[] = "Invalid instance name";
inline constexpr char kNameOutOfRange[] = "Instance name out of range";
inline constexpr char kNotWellFormed[] = "XML: %s";
inline constexpr char kSectionNotRead[] = "Section %s is not read";
inline constexpr char kCancelled[] = "Cancelled";

// Only in a write of ISO 10303-21 as it is published.
inline constexpr char kNoFiniteReal[] = "Real is not finite";
inline constexpr char kNotInFile[] = "Reference to object that is not in the file";

inline constexpr char kTooDeep[] = "Too deep nesting";
inline constexpr char kOutOfMemory[] = "Out of memory";

}  // namespace steprt

#endif
