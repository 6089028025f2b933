#include "observe/save_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace htr60::observe {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& file, const std::string& why) {
  const auto name = file.u8string();
  throw SaveError(name.empty() ? "No file is named."
                               : std::string(name.begin(), name.end()) + " cannot be saved: " + why + ".");
}

std::string Reason(int error) { return std::generic_category().message(error); }

#ifdef _WIN32
std::FILE* OpenNew(const fs::path& file) { return _wfopen(file.c_str(), L"wbx"); }
bool ToDisk(std::FILE* file) { return std::fflush(file) == 0 && _commit(_fileno(file)) == 0; }
#else
std::FILE* OpenNew(const fs::path& file) { return std::fopen(file.c_str(), "wbx"); }
bool ToDisk(std::FILE* file) { return std::fflush(file) == 0 && fsync(fileno(file)) == 0; }
#endif

/// A name beside `file` that nobody has.
fs::path NameBeside(const fs::path& file) {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device random;
  fs::path name = file;
  name += ".";
  for (int i = 0; i < 8; ++i) name += kLetters[random() % kLetters.size()];
  return name;
}

void WriteAll(const fs::path& file, const fs::path& beside, std::string_view bytes) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> out(OpenNew(beside), std::fclose);
  if (out == nullptr) Fail(file, Reason(errno));
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), out.get()) == bytes.size() && ToDisk(out.get());
  if (!written) Fail(file, Reason(errno));
}

}  // namespace

void SaveWhole(const fs::path& file, std::string_view bytes) {
  if (file.empty()) Fail(file, "");
  std::error_code error;
  // A link stays one: what it leads to is replaced.
  fs::path target = fs::is_symlink(file, error) ? fs::weakly_canonical(file, error) : file;
  if (target.empty()) target = file;
  if (fs::is_directory(target, error)) Fail(file, "it is a folder");
  const fs::path beside = NameBeside(target);
  try {
    WriteAll(file, beside, bytes);
    fs::rename(beside, target, error);
    if (error) Fail(file, error.message());
  } catch (const SaveError&) {
    fs::remove(beside, error);
    throw;
  }
}

}  // namespace htr60::observe
