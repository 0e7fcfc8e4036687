#include <climits>
#include <cstring>

#include "steprt/text.h"
#include "support/ascii.h"
#include "support/memory.h"

namespace {

// The shared text of all empty strings without a buffer. It is writable because an empty text assigned to one of them
// stores its terminator there.
constinit char emptyByte = '\0';
constinit char* const sharedEmpty = &emptyByte;

// Null counts as empty. A text whose length does not fit an int is cut.
int LengthOf(const char* text) { return text ? static_cast<int>(strnlen(text, INT_MAX - 1)) : 0; }

// The text may be part of the buffer itself.
void PutText(char* buffer, const char* text, int length) {
  if (length > 0) std::memmove(buffer, text, static_cast<std::size_t>(length));
  buffer[length] = '\0';
}

}  // namespace

STEPstring::STEPstring() { Init(); }

STEPstring::STEPstring(const char* text) {
  AllocBuffer(LengthOf(text));
  if (capacity > 0) PutText(data, text, length);
}

STEPstring::STEPstring(const STEPstring& other) { other.AllocCopy(*this); }

STEPstring::~STEPstring() { Delete(data); }

const STEPstring& STEPstring::operator=(const STEPstring& other) {
  AssignCopy(other.data);
  return *this;
}

const STEPstring& STEPstring::operator=(const char* text) {
  AssignCopy(text);
  return *this;
}

STEPstring::operator char*() const { return data; }

STEPstring::operator const char*() const { return data; }

int STEPstring::GetLength() { return length; }

bool STEPstring::IsEmpty() { return *data == '\0'; }

bool STEPstring::IsBlank() { return data[std::strspn(data, " ")] == '\0'; }

int STEPstring::Compare(const char* text) {
  const int order = std::strcmp(data, text ? text : "");
  return (order > 0) - (order < 0);
}

int STEPstring::CompareNoCase(const char* text) { return steprt::CompareNoCase(data, text ? text : ""); }

void STEPstring::MakeLower() {
  for (char* c = data; *c; ++c) *c = steprt::ToLower(*c);
}

void STEPstring::MakeUpper() {
  for (char* c = data; *c; ++c) *c = steprt::ToUpper(*c);
}

void STEPstring::Init() {
  data = sharedEmpty;
  length = capacity = 0;
}

void STEPstring::AllocBuffer(int n) {
  Init();
  if (n <= 0) return;
  char* buffer = steprt::MakeBufferOrNull(static_cast<std::size_t>(n) + 1);
  if (!buffer) return;
  data = buffer;
  length = capacity = n;
}

void STEPstring::AllocCopy(STEPstring& target) const {
  target.AllocBuffer(LengthOf(data));
  if (target.capacity > 0) PutText(target.data, data, target.length);
}

// A buffer never shrinks, and an empty text keeps it.
void STEPstring::AssignCopy(const char* text) {
  const int n = LengthOf(text);
  if (n > capacity) {
    Delete(data);
    AllocBuffer(n);
    if (capacity == 0) return;  // no memory: the string is empty
  }
  PutText(data, text, n);
  length = n;
}

void STEPstring::Delete(char* buffer) {
  if (buffer != sharedEmpty) delete[] buffer;
}

void STEPstring::Empty() {
  Delete(data);
  Init();
}
