// The fixed words of the clear-text form: those that divide a file into sections, and those of booleans and logicals.
// Readers and writers share them.
#ifndef STEPRT_READ_TRANSFER_KEYWORDS_H
#define STEPRT_READ_TRANSFER_KEYWORDS_H

namespace steprt {

enum {
  SEC_START = 0,
  SEC_HEADER = 1,
  SEC_DATA = 2,
  SEC_ENDSEC = 3,
  SEC_END = 4,
  SEC_NONE = 5  // any other word, and the end of the file
};

// The code of a section keyword, compared case-insensitively. Returns SEC_NONE for any other word.
int SectionCode(const char* word);

// The keyword that is written for a code. Returns the empty text for a code without one.
const char* SectionKeyword(int code);

inline constexpr const char* kBoolKeywords[] = {".F.", ".T."};
inline constexpr const char* kLogicalKeywords[] = {".U.", ".F.", ".T."};  // values -1, 0, 1

}  // namespace steprt

#endif
