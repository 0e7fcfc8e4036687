// How a standard file appears: its header, its name, and what is left after a failure.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "steprt/file_header.h"
#include "support/failing_new.h"
#include "support/faulty_calls.h"
#include "support/moment.h"
#include "support/proj_schema.h"
#include "support/repeat.h"
#include "support/size_limit.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;
namespace fs = std::filesystem;

// A folder of its own, so that a test sees every file that is left in it.
class StandardFile : public testing::Test {
 protected:
  StandardFile() : folder_(TempPath("standard-file")) {
    fs::remove_all(folder_);
    fs::create_directory(folder_);
  }

  int Write(const std::string& path, const STEPfileHeader* header = nullptr) {
    const int result = model_.WriteStandard(path.c_str(), header);
    reports_ = TakeReports(path);
    return result;
  }
  // Instances of PROBE, each with a record of about this many bytes.
  void Fill(int count, std::size_t size) {
    SetProbe({"", -1, {}, [text = std::string(size, 'x')](STEPtransfer* t) { wSTEPtext(t, "A", text.c_str()); }});
    for (int i = 0; i < count; ++i) new Entity(kProbe, &model_);
  }
  Texts Files() {
    Texts names;
    for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  const std::string folder_;
  const std::string path_ = folder_ + "/a.stp";
  ProjModel model_;
  Texts reports_;
};

TEST_F(StandardFile, HasEveryFieldOfTheHeader) {
  const Moment moment(1772694480, "BBB11:30");  // 2026-03-05T07:08:00Z
  ASSERT_EQ(Write(folder_ + "/it's"), 0);
  EXPECT_EQ(BytesOf(folder_ + "/it's.stp"),
            "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
            "FILE_NAME('it''s.stp','2026-03-04T19:38:00-11:30',(''),(''),\n'steprt 0.1.0','','');\n"
            "FILE_SCHEMA(('PROJ'));\nENDSEC;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n");
  STEPfileHeader header;
  ASSERT_TRUE(header.description.Add("it's") && header.description.Add("\xC3\xA4") && header.author.Add("A") &&
              header.author.Add("B") && header.organization.Add("C") && header.schemas.Add("PROJ { 1 0 }") &&
              header.schemas.Add("MORE"));
  header.implementationLevel = "4;1";
  header.name = "n";
  header.timeStamp = "t";
  header.preprocessorVersion = "p";
  header.originatingSystem = "o\\";
  header.authorization = "z";
  ASSERT_EQ(Write(path_, &header), 0);
  EXPECT_EQ(BytesOf(path_),
            "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION(('it''s','\\X\\E4'),'2;1');\n"
            "FILE_NAME('n','t',('A','B'),('C'),'p','o\\\\','z');\n"
            "FILE_SCHEMA(('PROJ { 1 0 }','MORE'));\nENDSEC;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n");
}

TEST_F(StandardFile, ReplacesTheOldOneWithItsRightsAndThroughLinks) {
  Fill(1, 5);
  MakeFile("standard-file/old.stp", "old");
  const std::string old = folder_ + "/old.stp";
  ASSERT_EQ(::chmod(old.c_str(), 0640), 0);
  fs::create_symlink("old.stp", folder_ + "/link.stp");
  fs::create_symlink(folder_ + "/link.stp", folder_ + "/chain.stp");
  fs::create_symlink("new.stp", folder_ + "/dangling.stp");
  fs::create_symlink("ring.stp", folder_ + "/ring.stp");
  ASSERT_EQ(Write(folder_ + "/chain.stp"), 1);
  EXPECT_THAT(BytesOf(old), testing::HasSubstr("#1=PROBE('xxxxx');"));
  EXPECT_EQ(static_cast<int>(fs::status(old).permissions()), 0640);
  ASSERT_EQ(Write(folder_ + "/dangling.stp"), 1);
  EXPECT_TRUE(fs::is_symlink(folder_ + "/dangling.stp"));
  EXPECT_THAT(BytesOf(folder_ + "/new.stp"), testing::HasSubstr("#1=PROBE('xxxxx');"));
  EXPECT_EQ(Write(folder_ + "/ring.stp"), -1);
  EXPECT_EQ(reports_, Texts{"(1) [Write]Can't create file"});
  EXPECT_EQ(Files(), (Texts{"chain.stp", "dangling.stp", "link.stp", "new.stp", "old.stp", "ring.stp"}));
}

// Whichever call fails, the old file is as it was and nothing is beside it.
TEST_F(StandardFile, IsTheOldOneAfterAFailure) {
  Fill(100, 3000);
  MakeFile("standard-file/a.stp", "old");
  for (const std::size_t space : {0u, 1u, 1000u, 70'000u, 200'000u}) {
    int result;
    {
      const SizeLimit limit(space);
      result = Write(path_);
    }
    EXPECT_EQ(result, -1);
    EXPECT_EQ(reports_.size(), 1u);
    EXPECT_EQ(reports_[0].substr(reports_[0].find(' ')), " [PROBE]error writing file");
    EXPECT_EQ(BytesOf(path_), "old");
    EXPECT_EQ(Files(), Texts{"a.stp"});
  }
  long failing = 0;
  for (int result = -1; result < 0;) {
    const FaultyCalls calls({.failing = ++failing, .error = EIO, .atMost = [] { return 50'000; }});
    result = Write(path_);
    if (!calls.HasFailed()) break;
    EXPECT_EQ(result, -1) << failing;
    EXPECT_EQ(BytesOf(path_), "old");
    EXPECT_EQ(Files(), Texts{"a.stp"});
  }
  EXPECT_GT(failing, 6);
  EXPECT_GT(BytesOf(path_).size(), 300'000u);
}

TEST_F(StandardFile, IsTheOldOneWhenTheClientThrows) {
  Fill(1, 1);
  MakeFile("standard-file/a.stp", "old");
  SetProbe({"", -1, {}, [](STEPtransfer*) { throw 5; }});
  EXPECT_THROW(Write(path_), int);
  EXPECT_EQ(BytesOf(path_), "old");
  EXPECT_EQ(Files(), Texts{"a.stp"});
  EXPECT_FALSE(model_.Locked());
}

TEST_F(StandardFile, IsWholeOrReportedWhenMemoryRunsOut) {
  Fill(3, 2000);
  int failed = 0;
  for (long n = 1;; ++n) {
    fs::remove(path_);
    int result;
    bool hasFailed;
    {
      const FailingNew failing(n);
      result = model_.WriteStandard(path_.c_str());
      hasFailed = failing.HasFailed();
    }
    const Texts reports = TakeReports(path_);
    if (!hasFailed) {
      EXPECT_EQ(result, 3);
      break;
    }
    if (result == 3) continue;
    ++failed;
    EXPECT_EQ(result, -1) << n;
    EXPECT_EQ(Files(), Texts()) << n;
  }
  EXPECT_GE(failed, 4);  // transfer, table of names, file
}

TEST_F(StandardFile, IsRefusedWhereItCannotBe) {
  Fill(1, 1);
  EXPECT_EQ(Write(folder_ + "/none/a.stp"), -1);
  EXPECT_EQ(reports_, Texts{"(1) [Write]Can't create file"});
  EXPECT_EQ(Write(folder_ + "/" + std::string(300, 'n') + ".stp"), -1);
  EXPECT_EQ(reports_, Texts{"(1) [Write]Can't create file"});
  MakeFile("standard-file/a.stp", "old");
  const int other = ::open(path_.c_str(), O_RDWR);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  EXPECT_EQ(Write(path_), -1);
  EXPECT_EQ(reports_, Texts{"(1) [Write]Can't create file"});
  ::close(other);
  EXPECT_EQ(BytesOf(path_), "old");
  EXPECT_EQ(Files(), Texts{"a.stp"});
  EXPECT_EQ(STEPwriteStandard(nullptr, nullptr, nullptr, ProjSchema(), nullptr), -1);
  EXPECT_EQ(STEPwriteStandard(path_.c_str(), nullptr, nullptr, nullptr, nullptr), -1);
}

TEST_F(StandardFile, IsWrittenIntoADeviceOrPipe) {
  Fill(1, 5);
  fs::create_symlink("/dev/full", folder_ + "/full.stp");
  EXPECT_EQ(Write(folder_ + "/full.stp"), -1);
  ASSERT_EQ(reports_.size(), 1u);
  EXPECT_THAT(reports_[0], testing::EndsWith("error writing file"));
  const std::string pipe = folder_ + "/pipe.stp";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(Write(pipe), -1);
  EXPECT_EQ(reports_, Texts{"(1) [Write]Can't create file"});
  const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(Write(pipe), 1);
  char bytes[1000] = "";
  EXPECT_GT(::read(reader, bytes, sizeof bytes - 1), 0);
  ::close(reader);
  EXPECT_THAT(bytes, testing::EndsWith("DATA;\n#1=PROBE('xxxxx');\nENDSEC;\nEND-ISO-10303-21;\n"));
  EXPECT_EQ(Files(), (Texts{"full.stp", "pipe.stp"}));
}

}  // namespace
