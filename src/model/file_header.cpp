#include "steprt/file_header.h"

#include "support/memory.h"

namespace {

constexpr std::size_t kLeastTexts = 8;

}  // namespace

STEPtexts::~STEPtexts() {
  Clear();
  delete[] texts_;
}

bool STEPtexts::Add(const char* text) {
  char* const copy = steprt::CopyTextOrNull(text ? text : "");
  if (!copy) return false;
  if (static_cast<std::size_t>(count_) == capacity_) {
    char** larger = steprt::MakeLargerOrNull(texts_, capacity_, &capacity_, kLeastTexts);
    if (!larger) {
      delete[] copy;
      return false;
    }
    delete[] texts_;
    texts_ = larger;
  }
  texts_[count_++] = copy;
  return true;
}

void STEPtexts::Clear() {
  while (count_ > 0) delete[] texts_[--count_];
}

void STEPfileHeader::Clear() {
  for (STEPtexts* list : {&description, &author, &organization, &schemas}) list->Clear();
  for (STEPstring* text :
       {&implementationLevel, &name, &timeStamp, &preprocessorVersion, &originatingSystem, &authorization}) {
    *text = "";
  }
}
