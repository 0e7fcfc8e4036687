/// @file
/// Texts: a bounded copy, and a small counted string for a client's entity classes.
///
///     STEPstring name = rSTEPtext(t, "Name");                     // copies the text
///     std::printf("%s\n", static_cast<const char*>(name));
///     if (name.Compare("North wall") == 0) name = "South wall";   // == would compare addresses
///
/// One thread at a time uses the library.
#ifndef STEPRT_TEXT_H
#define STEPRT_TEXT_H

#include <steprt/export.h>
#include <steprt/fwd.h>

/// Copies at most `limit` characters of `source`, adds a terminator and returns `destination`, which needs a size of
/// limit + 1. The result is the empty text if `limit` is 0 or negative, or if `source` is null. Never pass a null
/// destination.
STEPRT_API char* Copy(char* destination, const char* source, int limit);

/// A text with its length and the capacity of its buffer.
///
/// Every copy duplicates the text. A buffer comes from `new char[]` and never shrinks; strings without a buffer share
/// one static empty text. A null argument is an empty text. When memory runs out for a longer text, the string becomes
/// empty.
///
/// A string converts to a pointer. It has two such conversions, so some expressions are ambiguous and do not compile:
/// `s[0]`, `*s`, `if (s)`, `std::cout << s`. Cast to `const char*` first, in a call of printf too. Write
/// `std::string(s)` for a `std::string`; the form `std::string t = s` does not compile. Only the conversions work on a
/// const string.
class STEPRT_API STEPstring {
 public:
  STEPstring();                                          ///< An empty string. Allocates nothing.
  STEPstring(const char* text);                          ///< A copy of `text`.
  STEPstring(const STEPstring& other);                   ///< A copy of the other string's text.
  ~STEPstring();                                         ///< Releases the buffer.
  const STEPstring& operator=(const STEPstring& other);  ///< Copies the text; reuses the buffer if it is large enough.
  const STEPstring& operator=(const char* text);         ///< The same; `text` may be part of this string.

  /// The text, valid until the string is assigned or destroyed; never null. Never write beyond its length. The text of
  /// an empty string may be the shared one, which must remain a single 0.
  operator char*() const;
  operator const char*() const;  ///< The same, to read only.

  int GetLength();  ///< The number of characters without the terminator. Writing through a pointer does not update it.
  bool IsEmpty();   ///< Whether the first character is the terminator, whatever the length says.
  bool IsBlank();   ///< Whether all characters are spaces (0x20), as in an empty text. A tab is not blank.

  /// Compares byte by byte, as unsigned bytes. Returns -1, 0 or 1. A text is greater than each of its prefixes.
  int Compare(const char* text);

  /// Compares case-insensitively for ASCII letters. Returns a negative number, 0 or a positive number.
  int CompareNoCase(const char* text);

  void MakeLower();  ///< Converts ASCII letters to lower case in place, whatever the locale.
  void MakeUpper();  ///< Converts ASCII letters to upper case in place.

 protected:
  void Init();                               ///< Sets the shared empty text without releasing the old buffer.
  void AllocBuffer(int n);                   ///< Sets a new buffer for n characters, unterminated; if n is 0: Init.
  void AllocCopy(STEPstring& target) const;  ///< Copies this text into `target`, which must not own a buffer.
  void AssignCopy(const char* text);         ///< Copies `text` into the buffer, or into a new one if it is too small.
  void Delete(char* buffer);                 ///< Releases `buffer` unless it is the shared empty text.
  void Empty();                              ///< Delete, then Init.

  char* data;    ///< The text: a buffer of capacity + 1 characters, or the shared empty text.
  int length;    ///< Characters without the terminator.
  int capacity;  ///< The greatest length that fits the buffer; 0 if there is no buffer.
};

#endif
