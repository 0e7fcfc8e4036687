// Makes values such that a form brings them back as they went out.
#ifndef STEPRT_FUZZ_TAME_H
#define STEPRT_FUZZ_TAME_H

#include <string>

#include "client.h"

namespace fuzz {

enum class NullMembers { kKeep, kRemove };

void TameText(Form form, std::string& text);
void TameReal(double& real);
void TameReference(STEPheader*& object);
void TameSelect(Form form, STEPselect& select);

// Null lists are left alone: they are written like empty ones.
void TameReferences(STEPaggr* aggr, NullMembers nullMembers);
void TameReals(STEPaggr* aggr);
void TameTexts(Form form, STEPaggr* aggr);

}  // namespace fuzz

#endif
