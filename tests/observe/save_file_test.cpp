#include "observe/save_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

namespace htr60::observe {
namespace {

namespace fs = std::filesystem;

class SaveFile : public testing::Test {
 protected:
  SaveFile() : folder_(fs::path(testing::TempDir()) / ("htr60-save-" + std::to_string(::getpid()))) {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  ~SaveFile() override { fs::remove_all(folder_); }

  static std::string Read(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }
  std::size_t Files() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
  }
  /// The sentence of a save that fails.
  static std::string Failure(const fs::path& file, std::string_view bytes = "new") {
    try {
      SaveWhole(file, bytes);
    } catch (const SaveError& error) {
      return error.what();
    }
    return {};
  }

  fs::path folder_;
};

TEST_F(SaveFile, MakesAFileAndReplacesOne) {
  const fs::path file = folder_ / "record.csv";
  SaveWhole(file, "one");
  EXPECT_EQ(Read(file), "one");
  SaveWhole(file, std::string_view("a\0b", 3));
  EXPECT_EQ(Read(file), std::string("a\0b", 3));
  EXPECT_EQ(Files(), 1U);
}

TEST_F(SaveFile, SaysWhyItCannot) {
  const std::string missing = Failure(folder_ / "no such folder" / "a.csv");
  EXPECT_NE(missing.find("a.csv cannot be saved: "), std::string::npos) << missing;
  EXPECT_NE(Failure(folder_).find("it is a folder"), std::string::npos);
  EXPECT_EQ(Failure({}), "No file is named.");
  EXPECT_EQ(Files(), 0U);
}

#ifndef _WIN32
TEST_F(SaveFile, ALinkStaysALink) {
  SaveWhole(folder_ / "real", "old");
  fs::create_symlink("real", folder_ / "link");
  SaveWhole(folder_ / "link", "new");
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(Read(folder_ / "real"), "new");
}

// Files of the child stay small, as on a full disk.
TEST_F(SaveFile, AFullDiskLeavesTheOldFileAndASentence) {
  const fs::path file = folder_ / "record.csv";
  SaveWhole(file, "old");
  const pid_t child = fork();
  if (child == 0) {
    rlimit small{};
    small.rlim_cur = small.rlim_max = 1000;
    setrlimit(RLIMIT_FSIZE, &small);
    std::signal(SIGXFSZ, SIG_IGN);
    const std::string failure = Failure(file, std::string(100'000, 'x'));
    _exit(failure.find("record.csv cannot be saved: ") != std::string::npos ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Read(file), "old");
  EXPECT_EQ(Files(), 1U);
}

// A program that is killed while it saves again and again leaves the whole of one of its files.
TEST_F(SaveFile, AKilledSaveLeavesOneWholeFile) {
  const fs::path file = folder_ / "record.pdf";
  constexpr std::size_t kSize = 3'000'000;
  SaveWhole(file, std::string(kSize, 'a'));
  int interrupted = 0;
  for (int run = 0; run < 25; ++run) {
    const pid_t child = fork();
    if (child == 0) {
      for (char letter = 'b';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
        SaveWhole(file, std::string(kSize, letter));
      }
    }
    usleep(static_cast<useconds_t>(5'000 + run * 1'700));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "killed, not ended";
    const std::string bytes = Read(file);
    ASSERT_EQ(bytes.size(), kSize);
    EXPECT_EQ(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), bytes.front())), kSize);
    if (Files() > 1) ++interrupted;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      if (entry.path() != file) fs::remove(entry.path());
    }
  }
  EXPECT_GT(interrupted, 0) << "none was killed in the middle of a save";
}
#endif

}  // namespace
}  // namespace htr60::observe
