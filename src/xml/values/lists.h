// The items of a list in an element's text. Each call scans one item and moves the cursor to its end.
//
// The scanners look for what starts an item and skip everything before it, so a damaged list loses items but never
// stops a read.
#ifndef STEPRT_XML_VALUES_LISTS_H
#define STEPRT_XML_VALUES_LISTS_H

namespace steprt {

// Scans the next "#" {digit} or "$". Returns its number, 0 for a null item, and -1 at the end. A # without digits is a
// null item. A number that is too large is the largest int.
int ScanRefItem(const char** cursor);

// The last number that the scan of a list converted: its place and its value.
struct ScannedReal {
  const char* text = nullptr;
  double value = 0.0;
};

// Scans the next item between blanks and `;` as a real. Returns 0 for an item that is no number. At the end *cursor
// becomes null.
double ScanRealItem(const char** cursor, ScannedReal* last);

// Scans the next item in apostrophes. Returns null at the end. The item is terminated in place, so a text can be
// scanned only once. An item cannot contain an apostrophe.
char* ScanQuotedItem(char** cursor);

}  // namespace steprt

#endif
