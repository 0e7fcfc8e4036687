// Places that a file cannot be read from or written to, in both forms: always the report and the result that belong to
// it, never a signal, and nothing of it stays behind.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <thread>

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

Undo LimitHandles(const std::string&) {
  const int next = open(kNull, O_RDONLY);
  close(next);
  return Limit<RLIMIT_NOFILE>(static_cast<rlim_t>(next));
}

// Without the right to pass over permissions, which root has.
Undo ObeyPermissions() {
  __user_cap_header_struct head = {_LINUX_CAPABILITY_VERSION_3, 0};
  struct Sets {
    __user_cap_data_struct words[_LINUX_CAPABILITY_U32S_3];
  } before = {};
  EXPECT_EQ(syscall(SYS_capget, &head, before.words), 0);
  Sets less = before;
  less.words[0].effective &= ~(1u << CAP_DAC_OVERRIDE | 1u << CAP_DAC_READ_SEARCH);
  EXPECT_EQ(syscall(SYS_capset, &head, less.words), 0);
  return [head, before]() mutable { syscall(SYS_capset, &head, before.words); };
}

// A system that refuses nobody would prove nothing.
void ExpectNoAccess(const std::string& path) {
  EXPECT_EQ(open(path.c_str(), O_WRONLY | O_CREAT, 0600), -1);
  EXPECT_EQ(errno, EACCES);
}

Undo Forbid(const std::string& path) {
  close(open(path.c_str(), O_WRONLY | O_CREAT, 0));
  Undo undo = ObeyPermissions();
  ExpectNoAccess(path);
  return undo;
}

Undo ForbidFolder(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('/'));
  EXPECT_EQ(mkdir(folder.c_str(), 0555), 0);
  Undo undo = ObeyPermissions();
  ExpectNoAccess(path);
  return [undo, folder] {
    undo();
    rmdir(folder.c_str());
  };
}

const Place kPlaces[] = {
    {"a folder", "folder.stp", kNotOpened, kNotOpened, MakeFolder},
    {"no file yet", "none.stp", kNotOpened, kDone, Nothing},
    {"a missing folder", "missing/a.stp", kNotOpened, kNotOpened, Nothing},
    {"the system's own", "/proc/a.stp", kNotOpened, kNotOpened, Nothing},
    {"a link to itself", "loop.stp", kNotOpened, kNotOpened, Link<kItself>},
    {"a forbidden file", "forbidden.stp", kNotOpened, kNotOpened, Forbid},
    {"a forbidden folder", "closed/a.stp", kNotOpened, kNotOpened, ForbidFolder},
    {"no handle left", "handle.stp", kNotOpened, kNotOpened, LimitHandles},
    {"nothing", "null.stp", kEmpty, kDone, Link<kNull>},
    {"a file that fails", "failing.stp", kNotRead, kNotTried, Link<kUnreadable>},
    {"a full device", "full.stp", kNotTried, kNotWritten, Link<kFull>},
    {"a limit of size", "limit.stp", kNotTried, kNotWritten, LimitSize},
    {"a pipe that nobody reads", "pipe.stp", kNotTried, kNotOpened, MakePipe},
    {"a pipe that is closed", "closed-pipe.stp", kNotTried, kNotWritten, MakePipeThatCloses},
};

// ---- what a transfer gives there -----------------------------------------------------------------------------------

using Transfer = int (*)(STEPmodel& model, char* path);
using Expected = std::pair<Fate, Outcome>;

// What the transfer gives there, with the path masked. The place is there for it alone.
Outcome At(const Place& place, Transfer transfer) {
  std::string path = *place.file == '/' ? place.file : TempPath(place.file);
  ProjModel model;
  model.Name(path.c_str());
  const Undo undo = place.make(path);
  const int result = transfer(model, path.data());
  undo();
  unlink(path.c_str());
  rmdir(path.c_str());
  Texts reports = TakeReports(path);
  for (std::string& report : reports) {
    if (const std::size_t at = report.find(path); at != std::string::npos) report.replace(at, path.size(), "<path>");
  }
  return {result, reports, {}};
}

void ExpectEach(Fate Place::*fate, const char* form, Transfer transfer, const std::vector<Expected>& expected) {
  for (const Place& place : kPlaces) {
    if (place.*fate == kNotTried) continue;
    SCOPED_TRACE(std::string(place.name) + ", " + form);
    const auto wanted = std::find_if(expected.begin(), expected.end(), [&](auto& e) { return e.first == place.*fate; });
    ASSERT_NE(wanted, expected.end());
    EXPECT_EQ(At(place, transfer), wanted->second);
    sigset_t pending;
    sigpending(&pending);
    EXPECT_FALSE(sigismember(&pending, SIGPIPE) || sigismember(&pending, SIGXFSZ));
  }
}

TEST(PlaceSweep, WhatCannotBeReadIsTold) {
  const std::string notFound = "(1) [Read]File not found";
  const std::string notStep = "(1) [Read]Not a STEP file";
  const std::string cannotOpen = "Can't open file <path>";
  const std::string noElement = "no element found (line 1, column 1)";
  const std::string cannotRead = "the file can't be read on (line 1, column 1)";
  const auto readClearText = [](STEPmodel&, char* path) { return STEPread(path, ProjSchema(), false); };
  ExpectEach(&Place::read, "clear text", readClearText,
             {{kNotOpened, {1, {notFound}, {}}}, {kEmpty, {1, {notStep}, {}}}, {kNotRead, {1, {notStep}, {}}}});
  if (!steprt::saxService) return;
  const auto readXml = [](STEPmodel& model, char*) { return model.ReadXml(nullptr); };
  ExpectEach(
      &Place::read, "XML", readXml,
      {{kNotOpened, {-1, {cannotOpen}, {}}}, {kEmpty, {-1, {noElement}, {}}}, {kNotRead, {-1, {cannotRead}, {}}}});
  const auto readEither = [](STEPmodel& model, char* path) { return model.Read(false, path); };
  ExpectEach(&Place::read, "either", readEither,
             {{kNotOpened, {-1, {notFound, cannotOpen}, {}}},
              {kEmpty, {-1, {notStep, noElement}, {}}},
              {kNotRead, {-1, {notStep, cannotRead}, {}}}});
}

TEST(PlaceSweep, WhatCannotBeWrittenIsTold) {
  SetProbe({"", -1, {}, [](STEPtransfer* t) {
              if (onRecord) onRecord();
              wSTEPtext(t, "A", std::string(200, 'x').c_str());
            }});
  const Outcome refused = {-1, {"(1) [Write]Can't create file"}, {}};
  const auto write = [](STEPmodel& model, char* path) { return new Entity(kProbe, &model), model.Write(path, ""); };
  ExpectEach(
      &Place::write, "clear text", write,
      {{kNotOpened, refused}, {kNotWritten, {-1, {"(10) [PROBE]error writing file"}, {}}}, {kDone, {1, {}, {}}}});
  const auto writeXml = [](STEPmodel& model, char* path) {
    return new Entity(kProbe, &model), model.WriteXml(path, "");
  };
  ExpectEach(&Place::write, "XML", writeXml,
             {{kNotOpened, refused}, {kNotWritten, {-1, {"(5) [PROBE]error writing file"}, {}}}, {kDone, {1, {}, {}}}});
  SetProbe({});
}

// And one whose writer goes too early as a file that ends there.
TEST(PlaceSweep, APipeIsReadAsAFileOfWhatComes) {
  const std::string clearText = InFrame("#1=PERSON(1);\n#2=DOOR($);\n#3=PERSON(3);");
  const std::string document = InRoot("<PERSON rid='#1'/><DOOR rid='#2'/><PERSON rid='#3'/>");
  for (const std::string& whole : {clearText, document}) {
    if (whole == document && !steprt::saxService) continue;
    const auto read = [&](const std::string& path) {
      ProjModel model;
      model.Name(path.c_str());
      CurrentModel(&model);
      const int result = whole == document ? model.ReadXml(nullptr) : STEPread(model.Name(), ProjSchema(), false);
      return Outcome{result, TakeReports(path), Population(model)};
    };
    for (const std::string& bytes : {whole, whole.substr(0, whole.size() * 3 / 4)}) {
      const Outcome expected = read(MakeFile("piped.stp", bytes));
      EXPECT_EQ(expected.result != 0, bytes != whole);
      const std::string pipe = TempPath("piped.stp");
      unlink(pipe.c_str());
      MakePipe(pipe);
      std::thread writer([&] {
        const int handle = open(pipe.c_str(), O_WRONLY);
        for (std::size_t at = 0; at < bytes.size(); at += 10) {
          if (write(handle, bytes.data() + at, std::min<std::size_t>(10, bytes.size() - at)) < 0) break;
        }
        close(handle);
      });
      EXPECT_EQ(read(pipe), expected);
      writer.join();
      unlink(pipe.c_str());
    }
  }
}

}  // namespace
