#include "read/progress.h"

#include "read/transfer/report.h"

namespace steprt {

void TellProgress(STEPtransfer* t) {
  WideRead& wide = *t->wide;
  InputFile& in = *t->file.in;
  wide.seenBlock = in.Blocks();
  if (!wide.options.progress || wide.isMuted) return;
  if (wide.options.progress(in.OffsetOf(in.Cursor()), in.Size(), wide.options.context)) return;
  ReportError(t, kCancelled);
  wide.isMuted = true;
  in.Stop();
}

void TellEnd(STEPtransfer* t) {
  const WideRead& wide = *t->wide;
  if (!wide.options.progress || wide.isMuted) return;
  const std::uint64_t size = t->file.in->OffsetOf(t->file.in->Cursor());
  wide.options.progress(size, size, wide.options.context);
}

}  // namespace steprt
