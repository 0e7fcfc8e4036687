// What a benchmark is checked by before it takes time.
#ifndef STEPRT_BENCH_FINGERPRINT_H
#define STEPRT_BENCH_FINGERPRINT_H

#include <cstdint>
#include <string>

class STEPheader;

namespace bench {

// Equal for two chains exactly when, as good as certainly, they hold equal objects in the same order: types, numbers
// to the last bit, texts, and references by the place of what they point at. It uses the field `number`.
std::uint64_t Fingerprint(STEPheader* first);

// The same for two files, the line of FILE_NAME apart, which names the file and the date.
std::uint64_t FileFingerprint(const std::string& path);

}  // namespace bench

#endif
