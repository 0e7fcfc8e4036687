// Texts of a model as people read them.
#ifndef PLAN_LABELS_H
#define PLAN_LABELS_H

#include <string>

namespace plan {

// The text in UTF-8. The library leaves encoded characters as the file writes them: \S\, \X\ and \X2\ are decoded here,
// and bytes above 127 are taken as ISO 8859-1.
std::string LabelOf(const char* text);

// A name for a file: letters and digits, with one `_` for everything between them.
std::string FileNameOf(const std::string& label);

// A number as a sheet shows it: "12.50".
std::string NumberText(double value, int decimals);

// How wide a text is, in the unit of its letter size: an estimate for the fonts that a drawing asks for.
double TextWidth(const std::string& text, double size);

}  // namespace plan

#endif
