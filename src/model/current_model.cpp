#include "model/current_model.h"

#include <cstring>

#include "steprt/text.h"
#include "support/number_print.h"

namespace {

constexpr int kPrefixLimit = 63;

constinit STEPmodel* currentModel = nullptr;
constinit char autoId[kPrefixLimit + steprt::kIntBuffer] = "";  // any int fits, whatever `lastId` was set to

}  // namespace

STEPmodel* CurrentModel() { return currentModel; }

void CurrentModel(STEPmodel* model) { currentModel = model; }

char* AutoId(int /*reserved*/, const char* prefix) {
  Copy(autoId, prefix, kPrefixLimit);
  const int id = currentModel ? currentModel->GetEntId() : 0;
  char digits[steprt::kIntBuffer];
  *steprt::IntToText(digits, id) = '\0';
  std::strcat(autoId, digits);
  return autoId;
}
