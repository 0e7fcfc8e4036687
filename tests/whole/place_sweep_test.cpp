// Places that a file cannot be read from or written to, in both forms: always the report and the result that belong to
// it, never a signal, and nothing of it stays.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <map>
#include <thread>

#include "platform/posix/file_calls.h"
#include "platform/sax.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

using Undo = std::function<void()>;

// What becomes of a transfer there.
enum Fate { kNotTried, kNotOpened, kEmpty, kNotRead, kNotWritten, kDone };

struct Place {
  const char* name;
  const char* file;  // below the folder of the tests, unless it is a whole path
  Fate read;
  Fate write;
  Undo (*make)(const std::string& path);
};

// ---- how a place is made -------------------------------------------------------------------------------------------

Undo Nothing(const std::string&) {
  return [] {};
}

Undo MakeFolder(const std::string& path) {
  EXPECT_EQ(mkdir(path.c_str(), 0755), 0);
  return Nothing("");
}

template <const char* target>
Undo Link(const std::string& path) {
  EXPECT_EQ(symlink(*target ? target : path.c_str(), path.c_str()), 0);
  return Nothing("");
}
constexpr char kItself[] = "";
constexpr char kNull[] = "/dev/null";
constexpr char kFull[] = "/dev/full";
constexpr char kUnreadable[] = "/proc/self/mem";  // at its start nothing is mapped: EIO

Undo MakePipe(const std::string& path) {
  EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
  return Nothing("");
}

std::function<void()> onRecord;  // while a record is written

Undo MakePipeThatCloses(const std::string& path) {
  MakePipe(path);
  const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_GE(reader, 0);
  onRecord = [reader] { close(reader); };
  return [] { onRecord = {}; };
}

template <int resource>
Undo Limit(rlim_t most) {
  rlimit before;
  getrlimit(resource, &before);
  rlimit small = before;
  small.rlim_cur = most;
  EXPECT_EQ(setrlimit(resource, &small), 0);
  return [before] { setrlimit(resource, &before); };
}

Undo LimitSize(const std::string&) { return Limit<RLIMIT_FSIZE>(100); }

Undo LimitHandles(const std::string&) { return Limit<RLIMIT_NOFILE>(static_cast<rlim_t>(NextHandle())); }

// Without the right to pass over permissions, which root has. A system that refuses nobody would prove nothing.
Undo ForbidFolder(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('/'));
  EXPECT_EQ(mkdir(folder.c_str(), 0555), 0);
  __user_cap_header_struct head = {_LINUX_CAPABILITY_VERSION_3, 0};
  std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> before{};
  EXPECT_EQ(syscall(SYS_capget, &head, before.data()), 0);
  auto less = before;
  less[0].effective &= ~(1u << CAP_DAC_OVERRIDE | 1u << CAP_DAC_READ_SEARCH);
  EXPECT_EQ(syscall(SYS_capset, &head, less.data()), 0);
  EXPECT_TRUE(open(path.c_str(), O_WRONLY | O_CREAT, 0600) == -1 && errno == EACCES);
  return [=]() mutable {
    syscall(SYS_capset, &head, before.data());
    rmdir(folder.c_str());
  };
}

int signals = 0;  // that interrupt an opening

int OpenAmongSignals(const char* name, int flags, ...) {
  return signals-- > 0 ? (errno = EINTR, -1) : open(name, flags, 0600);
}

// Another process has a lease of the file, which a patient opening ends.
int OpenLeased(const char* name, int flags, ...) {
  return flags & O_NONBLOCK ? (errno = EWOULDBLOCK, -1) : open(name, flags, 0600);
}

template <int (*call)(const char* name, int flags, ...)>
Undo MakeFileOpenedBy(const std::string& path) {
  close(open(path.c_str(), O_WRONLY | O_CREAT, 0600));
  signals = 2;
  steprt::fileCalls.open = call;
  return [] { steprt::fileCalls.open = open; };
}

const Place kPlaces[] = {
    {"a folder", "folder.stp", kNotOpened, kNotOpened, MakeFolder},
    {"no file yet", "none.stp", kNotOpened, kDone, Nothing},
    {"a missing folder", "missing/a.stp", kNotOpened, kNotOpened, Nothing},
    {"a folder that may not be written", "closed/a.stp", kNotOpened, kNotOpened, ForbidFolder},
    {"the system's own", "/proc/a.stp", kNotOpened, kNotOpened, Nothing},
    {"a link to itself", "loop.stp", kNotOpened, kNotOpened, Link<kItself>},
    {"no handle left", "handle.stp", kNotOpened, kNotOpened, LimitHandles},
    {"a file that signals interrupt", "interrupted.stp", kEmpty, kDone, MakeFileOpenedBy<OpenAmongSignals>},
    {"a leased file", "leased.stp", kEmpty, kDone, MakeFileOpenedBy<OpenLeased>},
    {"nothing", "null.stp", kEmpty, kDone, Link<kNull>},
    {"a file that fails", "failing.stp", kNotRead, kNotTried, Link<kUnreadable>},
    {"a full device", "full.stp", kNotTried, kNotWritten, Link<kFull>},
    {"a limit of size", "limit.stp", kNotTried, kNotWritten, LimitSize},
    {"a pipe that nobody reads", "pipe.stp", kNotTried, kNotOpened, MakePipe},
    {"a pipe that is closed", "closed-pipe.stp", kNotTried, kNotWritten, MakePipeThatCloses},
};

// ---- what a transfer returns there ---------------------------------------------------------------------------------

const char kNotFound[] = "(1) [Read]File not found";
const char kNotStep[] = "(1) [Read]Not a STEP file";
const char kCannotOpen[] = "Can't open file <path>";
const char kNoElement[] = "no element found (line 1, column 1)";
const char kCannotRead[] = "the file can't be read on (line 1, column 1)";
const char kRefused[] = "(1) [Write]Can't create file";

const struct Transfer {
  const char* name;
  Fate Place::*fate;
  int (*run)(STEPmodel& model, char* path);
  std::map<Fate, Outcome> outcomes;
} kTransfers[] = {
    {"a read of clear text",
     &Place::read,
     [](STEPmodel&, char* path) { return STEPread(path, ProjSchema(), false); },
     {{kNotOpened, {1, {kNotFound}, {}}}, {kEmpty, {1, {kNotStep}, {}}}, {kNotRead, {1, {kNotStep}, {}}}}},
    {"a read by XML",
     &Place::read,
     [](STEPmodel& model, char*) { return model.ReadXml(nullptr); },
     {{kNotOpened, {-1, {kCannotOpen}, {}}}, {kEmpty, {-1, {kNoElement}, {}}}, {kNotRead, {-1, {kCannotRead}, {}}}}},
    {"a read of clear text or by XML",
     &Place::read,
     [](STEPmodel& model, char* path) { return model.Read(false, path); },
     {{kNotOpened, {-1, {kNotFound, kCannotOpen}, {}}},
      {kEmpty, {-1, {kNotStep, kNoElement}, {}}},
      {kNotRead, {-1, {kNotStep, kCannotRead}, {}}}}},
    {"a write of clear text",
     &Place::write,
     [](STEPmodel& model, char* path) { return new Entity(kProbe, &model), model.Write(path, ""); },
     {{kNotOpened, {-1, {kRefused}, {}}},
      {kNotWritten, {-1, {"(10) [PROBE]error writing file"}, {}}},
      {kDone, {1, {}, {}}}}},
    {"a write of XML",
     &Place::write,
     [](STEPmodel& model, char* path) { return new Entity(kProbe, &model), model.WriteXml(path, ""); },
     {{kNotOpened, {-1, {kRefused}, {}}},
      {kNotWritten, {-1, {"(5) [PROBE]error writing file"}, {}}},
      {kDone, {1, {}, {}}}}},
};

// What the transfer returns there, with the path masked. The place is there for it alone.
Outcome At(const Place& place, const Transfer& transfer) {
  std::string path = *place.file == '/' ? place.file : TempPath(place.file);
  ProjModel model;
  model.Name(path.c_str());
  const Undo undo = place.make(path);
  const int result = transfer.run(model, path.data());
  undo();
  unlink(path.c_str());
  rmdir(path.c_str());
  Texts reports = TakeReports(path);
  for (std::string& report : reports) {
    if (const std::size_t at = report.find(path); at != std::string::npos) report.replace(at, path.size(), "<path>");
  }
  return {result, reports, {}};
}

TEST(PlaceSweep, WhatCannotBeReadOrWrittenIsTold) {
  SetProbe({"", -1, {}, [](STEPtransfer* t) {
              if (onRecord) onRecord();
              wSTEPtext(t, "A", std::string(200, 'x').c_str());
            }});
  for (const Transfer& transfer : kTransfers) {
    if (std::string(transfer.name).find("by XML") != std::string::npos && !steprt::saxService) continue;
    for (const Place& place : kPlaces) {
      if (place.*transfer.fate == kNotTried) continue;
      const int handle = NextHandle();
      EXPECT_EQ(At(place, transfer), transfer.outcomes.at(place.*transfer.fate)) << place.name << ", " << transfer.name;
      EXPECT_EQ(NextHandle(), handle) << place.name << ", " << transfer.name;
      sigset_t pending;
      sigpending(&pending);
      EXPECT_FALSE(sigismember(&pending, SIGPIPE) || sigismember(&pending, SIGXFSZ));
    }
  }
}

// A descriptor without a procedure for errors shows them on the standard error stream, which may be anything.
TEST(PlaceSweep, MessagesNeitherReachTheFileNorBringASignal) {
  for (const bool isClosed : {true, false}) {
    ProjModel model;
    model.schema->errorProc = nullptr;
    new Entity(kPerson, &model);
    (new Entity(kPerson, &model))->Type(12345);
    const int kept = dup(STDERR_FILENO);
    if (isClosed) {
      close(STDERR_FILENO);
    } else {
      int pipe[2];
      ASSERT_EQ(::pipe(pipe), 0);
      close(pipe[0]);
      dup2(pipe[1], STDERR_FILENO);
      close(pipe[1]);
    }
    std::string path = TempPath("told.stp");
    EXPECT_EQ(model.Write(path.data(), ""), 1);
    dup2(kept, STDERR_FILENO);
    close(kept);
    model.schema->errorProc = CollectReport;
    EXPECT_EQ(BytesOf(path).find("Unknown STEP object"), std::string::npos);
  }
}

TEST(PlaceSweep, APipeIsReadAsAFileOfWhatComes) {
  for (const std::string& bytes : {InFrame("#1=PERSON(1);\n#2=DOOR($);\n#3=PERSON(3);"),
                                   InRoot("<DOOR rid='#1'/><DOOR rid='#2'/><DOOR rid='#3'/>")}) {
    const bool isDocument = bytes[0] == '<';
    if (isDocument && !steprt::saxService) continue;
    const std::string pipe = TempPath("piped.stp");
    MakePipe(pipe);
    std::thread writer([&] {
      const int handle = open(pipe.c_str(), O_WRONLY);
      for (std::size_t at = 0; at < bytes.size(); at += 10) {
        if (write(handle, bytes.data() + at, std::min<std::size_t>(10, bytes.size() - at)) < 0) break;
      }
      close(handle);
    });
    ProjModel model;
    model.Name(pipe.c_str());
    EXPECT_EQ(isDocument ? model.ReadXml(nullptr) : model.Read(true, nullptr), 0);
    writer.join();
    unlink(pipe.c_str());
    EXPECT_EQ(Population(model).size(), 3u);
  }
}

}  // namespace
