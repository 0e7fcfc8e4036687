// Takes the items of a list out of an element's text, one with each call.
#ifndef STEPRT_XML_VALUES_LISTS_H
#define STEPRT_XML_VALUES_LISTS_H

namespace steprt {

// The next #number or `$`, whatever stands in front of it: the number, 0 for a null item, -1 at the end. A # without a
// number is a null item.
int ScanRefItem(const char** cursor);

// What the scan of a list of numbers remembers of its last item: the place of the number, and its value.
struct ScannedReal {
  const char* text = nullptr;
  double value = 0.0;
};

// The next item between blanks and `;`, as a real; 0 for one that is no number. At the end *cursor becomes null.
double ScanRealItem(const char** cursor, ScannedReal* last);

// The next item in apostrophes, whatever stands in front of it; null at the end. The item is terminated in place, so a
// text can be scanned once only. There is no apostrophe inside an item.
char* ScanQuotedItem(char** cursor);

}  // namespace steprt

#endif
