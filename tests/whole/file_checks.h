// What must hold for any file, whatever its bytes are. The tests check damaged files with these functions, and the fuzz
// targets check what they invent. A breach is a failure of Google Test.
#ifndef STEPRT_TESTS_WHOLE_FILE_CHECKS_H
#define STEPRT_TESTS_WHOLE_FILE_CHECKS_H

#include <string>

namespace steprt_test {

// Reads the bytes as STEPmodel::Read does. The reference reader must find the same population and reports. Whether the
// schema is checked and how much one call of the system reads follows from the number of bytes. What was read must
// come back after a write in either form.
void CheckClearText(const std::string& bytes);

// Reads the bytes as a standard file, in memory and as a file that arrives in pieces. Both must agree, and each report
// must have a place in the file. Options follow from the number of bytes; some reads are cancelled. What was read is
// written, but may not come back: the library's own form does not hold it all.
void CheckStandard(const std::string& bytes);

// Reads the bytes as a standard file, every record as it is, and writes that in clear text and in XML. A read of what
// was written reports nothing and finds the same values, unless the write reports one that no file can have.
void CheckStandardWrite(const std::string& bytes);

// Reads the bytes up to the first that is 0 as a document in memory, and as a file that arrives in pieces. Both must
// agree, and what was read must come back.
void CheckDocument(const std::string& bytes);

}  // namespace steprt_test

#endif
