// Texts: a bounded copy, and a small counted string for the client's entity classes.
#ifndef STEPRT_TEXT_H
#define STEPRT_TEXT_H

#include <steprt/export.h>
#include <steprt/fwd.h>

// Copies the characters of `source` up to its terminator, `limit` of them at most, writes a terminator behind them and
// gives `destination` back. The destination holds limit + 1 characters. A limit of 0 or below, and a null source, give
// the empty text.
STEPRT_API char* Copy(char* destination, const char* source, int limit);

// A text with a length and a capacity. Every empty string that has no buffer shares one static byte; a buffer comes
// from new char[] and goes back by delete[]. Copies duplicate the text. A buffer never shrinks.
//
// Null texts count as empty ones. Without memory for a longer text a string is left empty.
class STEPRT_API STEPstring {
 public:
  STEPstring();
  STEPstring(const char* text);
  STEPstring(const STEPstring& other);
  ~STEPstring();
  const STEPstring& operator=(const STEPstring& other);
  const STEPstring& operator=(const char* text);

  // The text. Do not write beyond its length; an empty string's leads to the shared byte, which must stay 0.
  operator char*() const;
  operator const char*() const;

  int GetLength();  // characters, without the terminator
  bool IsEmpty();   // the text, not the length, is looked at
  bool IsBlank();   // nothing but spaces (0x20); the empty text is blank

  // Byte by byte, as unsigned bytes: -1, 0 or 1. A prefix compares below the longer text.
  int Compare(const char* text);

  // The same with ASCII letters folded: negative, 0 or positive.
  int CompareNoCase(const char* text);

  void MakeLower();  // ASCII letters only, whatever the host's locale
  void MakeUpper();

 protected:
  void Init();                               // the shared empty text; the old buffer is not released
  void AllocBuffer(int n);                   // a buffer of n + 1 characters, without a terminator; n of 0: Init
  void AllocCopy(STEPstring& target) const;  // a copy of this text, into a string that holds no buffer
  void AssignCopy(const char* text);         // into the buffer that is there, or a new one if it is too small
  void Delete(char* buffer);                 // releases it, unless it is the shared empty text
  void Empty();                              // Delete, then Init

  char* data;    // the text: capacity + 1 characters, or the shared empty one
  int length;    // characters without the terminator
  int capacity;  // 0 for the shared empty text
};

#endif
