// Writing, reading what was written, and writing again.
#ifndef STEPRT_FUZZ_AGAIN_H
#define STEPRT_FUZZ_AGAIN_H

#include "client.h"
#include "memory_file.h"

namespace fuzz {

// Tames the population, writes it in the form, reads that into another model and writes it again. The two files are
// equal, byte for byte but for the date.
void CheckWritesAgain(Model& model, MemoryFile& file, Form form);

}  // namespace fuzz

#endif
