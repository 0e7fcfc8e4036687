// What is left of a file whose writes fail, a second writer, and pipes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/output_file.h"
#include "support/faulty_calls.h"
#include "support/proj_schema.h"
#include "support/size_limit.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

constexpr char kTail[] = "ENDSEC;\n\nEND-ISO-10303-21;\n";

class WriteFailures : public testing::Test {
 protected:
  ~WriteFailures() override { SetProbe({}); }

  // Fills the model with instances of PROBE whose records are of about this many bytes.
  void Fill(int count, std::size_t size) {
    SetProbe({"", -1, {}, [text = std::string(size, 'x')](STEPtransfer* t) { wSTEPtext(t, "A", text.c_str()); }});
    for (int i = 0; i < count; ++i) new Entity(kProbe, &model_);
  }

  int Write(std::string path) {
    const int result = model_.Write(path.data(), "");
    reports_ = TakeReports(path);
    return result;
  }

  ProjModel model_;
  Texts reports_;
};

// The head of a written file and its first records.
std::string UpToRecord(const std::string& bytes, int records) {
  std::size_t end = bytes.find("DATA;\n") + 6;
  for (int i = 0; i < records; ++i) end = bytes.find('\n', end) + 1;
  return bytes.substr(0, end);
}

TEST_F(WriteFailures, OnePassingFailureLeavesWholeRecordsAndTheTail) {
  constexpr int kAll = 1 << 20;
  const struct {
    int count;
    std::size_t size;
    long failing;
    int atMost;   // bytes that one call writes
    int records;  // that are left; -1: not even the head
  } rows[] = {{100, 3000, 1, kAll, -1}, {100, 3000, 2, kAll, 1},   {100, 3000, 4, kAll, 44},
              {100, 3000, 3, 1000, 0},  {100, 3000, 3, 50000, 17}, {100, 3000, 4, 50000, 22},
              {3, 200000, 2, kAll, 0},  {3, 200000, 6, kAll, 1},   {30000, 1, 4, kAll, 6609}};
  std::string path = TempPath("passing.stp");
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.size << " bytes, call " << row.failing << " of " << row.atMost);
    model_.Delete();
    Fill(row.count, row.size);
    ASSERT_EQ(Write(path), row.count);
    const std::string sound = MaskedBytesOf(path);
    {
      const FaultyCalls calls({.failing = row.failing, .error = EIO, .atMost = [&] { return row.atMost; }});
      EXPECT_EQ(Write(path), -1);
      EXPECT_TRUE(calls.HasFailed());
    }
    ASSERT_EQ(reports_.size(), 1u);
    EXPECT_EQ(reports_[0].substr(reports_[0].find(' ')), " [PROBE]error writing file");
    EXPECT_EQ(MaskedBytesOf(path), (row.records < 0 ? "" : UpToRecord(sound, row.records)) + kTail);
  }
}

// However short the records are, no more of them go than the tail takes.
TEST_F(WriteFailures, WhereThereIsNoMoreSpaceTheTailFits) {
  const std::string path = TempPath("space.stp");
  for (const std::size_t size : {0u, 30u, 3000u}) {
    model_.Delete();
    Fill(size < 30 ? 9000 : 2000, size);
    ASSERT_GT(Write(path), 0);
    const std::string sound = MaskedBytesOf(path);
    const std::size_t mask = BytesOf(path).size() - sound.size();
    for (std::size_t space = 70000; space < 70000 + sizeof kTail; ++space) {
      int result;
      {
        const SizeLimit limit(space);
        result = Write(path);
      }
      EXPECT_EQ(result, -1);
      const std::size_t whole = sound.rfind(");\n", space - mask - (sizeof kTail - 1) - 3) + 3;
      EXPECT_EQ(MaskedBytesOf(path), sound.substr(0, whole) + kTail) << size << " " << space;
    }
  }
}

// The head stays, with as much of the tail as there is space for.
TEST_F(WriteFailures, WhereNoTailFitsTheHeadIsNotGivenUp) {
  Fill(3, 10);
  const std::string path = TempPath("head.stp");
  ASSERT_EQ(Write(path), 3);
  const std::string head = UpToRecord(BytesOf(path), 0);
  for (std::size_t space = 0; space < sizeof kTail - 2; ++space) {
    int result;
    {
      const SizeLimit limit(head.size() + space);
      result = Write(path);
    }
    EXPECT_EQ(result, -1);
    EXPECT_EQ(MaskedBytesOf(path), UpToRecord(MaskedBytesOf(path), 0) + std::string(kTail, space)) << space;
    EXPECT_EQ(BytesOf(path).substr(0, 13), "ISO-10303-21;") << space;
  }
}

// Half a record stays there, on lines of its own.
TEST_F(WriteFailures, WhereNothingCanBeCutOffTheTailIsOnANewLine) {
  Fill(1, 3000);
  const std::string pipe = TempPath("passing-pipe.stp");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  {
    const FaultyCalls calls({.failing = 3, .error = EIO, .atMost = [] { return 1000; }});
    EXPECT_EQ(Write(pipe), -1);
  }
  std::string bytes(4000, '\0');
  bytes.resize(static_cast<std::size_t>(read(reader, bytes.data(), bytes.size())));
  close(reader);
  EXPECT_EQ(bytes.substr(1990), std::string("xxxxxxxxxx\n") + kTail);
}

TEST_F(WriteFailures, AFileWithoutRecordsDoesNotLook) {
  const std::string full = TempPath("full.stp");  // the device's own name would get an ending
  ASSERT_EQ(symlink("/dev/full", full.c_str()), 0);
  EXPECT_EQ(Write(full), 0);
  unlink(full.c_str());
}

// The first block goes out after the first record, so the second write is that of the end.
TEST_F(WriteFailures, AFailureAtTheEndIsThatOfTheLastRecord) {
  Fill(5, 10);
  const FaultyCalls calls({.failing = 2, .error = ENOSPC});
  EXPECT_EQ(Write(TempPath("end.stp")), -1);
  EXPECT_EQ(reports_, Texts{"(14) [PROBE]error writing file"});
}

// The lock is taken before the file is emptied. Beside a writer of XML another one of XML is let in.
TEST_F(WriteFailures, ASecondWriterIsRefusedAndTheFirstOnesFileStaysWhole) {
  std::string path = TempPath("locked.stp");
  int second = 0;
  int document = 0;
  SetProbe({"", -1, {}, [&](STEPtransfer* t) {
              wSTEPint(t, "A", 1);
              document = ProjModel().WriteXml(path.data(), "");
              second = STEPwrite(path.data(), "", nullptr, ProjSchema());
            }});
  new Entity(kProbe, &model_);
  EXPECT_EQ(Write(path), 1);
  EXPECT_EQ(second, -1);
  EXPECT_EQ(document, -1);
  EXPECT_EQ(reports_, Texts(2, "(1) [Write]Can't create file"));
  EXPECT_NE(BytesOf(path).find("DATA;\n#1 = PROBE(1);\nENDSEC;"), std::string::npos);
  EXPECT_EQ(model_.WriteXml(path.data(), ""), 1) << "the lock goes with the writer";
  EXPECT_EQ(second, -1);
  EXPECT_EQ(document, 0);
  EXPECT_EQ(TakeReports(path).size(), 1u);
}

TEST_F(WriteFailures, AChildThatLivesOnDoesNotKeepTheLock) {
  const std::string path = TempPath("forked.stp");
  pid_t child = -1;
  SetProbe({"", -1, {}, [&](STEPtransfer* t) {
              wSTEPint(t, "A", 1);
              if (child < 0) child = fork();
              if (child == 0) pause(), _exit(0);
            }});
  new Entity(kProbe, &model_);
  EXPECT_EQ(Write(path), 1);
  EXPECT_EQ(Write(path), 1);
  ASSERT_GT(child, 0);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
}

TEST_F(WriteFailures, APipeThatIsFullIsWaitedFor) {
  Fill(20, 10000);
  const std::string pipe = TempPath("full-pipe.stp");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int end = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(end, 0);
  fcntl(end, F_SETFL, 0);
  std::string bytes;
  std::thread reader([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));  // longer than it takes to fill the pipe
    char block[4096];
    for (ssize_t count; (count = read(end, block, sizeof block)) > 0;) {
      bytes.append(block, static_cast<std::size_t>(count));
    }
  });
  EXPECT_EQ(Write(pipe), 20);
  reader.join();
  close(end);
  const auto data = bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.find("DATA;"), bytes.size()));
  EXPECT_EQ(std::count(data, bytes.end(), 'x'), 20 * 10000) << "the header holds the name of the pipe, the data do not";
  EXPECT_EQ(bytes.substr(bytes.size() - (sizeof kTail - 1)), kTail);
}

}  // namespace
