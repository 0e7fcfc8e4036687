#include "steprt/standard.h"

STEPcomplex::STEPcomplex() : STEPheader(nullptr) { type = kType; }

// A part is on no list of its model, so its destructor must not look for it there.
STEPcomplex::~STEPcomplex() {
  while (parts_) {
    STEPheader* const part = parts_;
    parts_ = part->next;
    part->model = nullptr;
    delete part;
  }
}

void STEPcomplex::Add(STEPheader* part) {
  part->next = nullptr;
  part->model = model;
  *tail_ = part;
  tail_ = &part->next;
}
