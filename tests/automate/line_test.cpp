#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "driver.h"

namespace htr60::automation {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(Line, WhatIsNoCommandIsRefused) {
  const std::string deep =
      R"j({"do":"set","member":"SubPage","value":)j" + std::string(200000, '[') + std::string(200000, ']') + "}";
  const std::string_view lines[] = {
      "",
      " ",
      "\r",
      " \t\r",
      "{",
      "}",
      "null",
      "7",
      "create",
      "{\"do\":\"create\"",
      "{\"do\":\"create\"}x",
      "{'do':'create'}",
      "{\"do\":\"create\",}",
      "{\"do\":NaN}",
      "{\"do\":\"create\"}{\"do\":\"create\"}",
      "// {\"do\":\"create\"}",
      "{\"do\":\"create\"}\0"sv,
      "{\"do\":\"create\"}\0x"sv,
      "\0"sv,
      "{\"do\":\"cre\0ate\"}"sv,
      "{\"do\":\"\xFF\"}",
      "{\"do\":\"create\",\"\xC3\x28\":1}",
      "{\"do\":\"\xED\xA0\x80\"}",
      "{\"do\":\"\xC0\x80\"}",
      "{\"do\":\"\\ud800\"}",
      "\xFF\xFE",
      "{\"do\":\"advance\",\"ms\":1e999}",
      deep,
  };
  Interpreter interpreter;
  for (const std::string_view line : lines) {
    SCOPED_TRACE(std::string(line.substr(0, 80)));
    const Json answer = Json::parse(interpreter.DoLine(line));
    EXPECT_EQ(answer.at("ok"), false);
    EXPECT_FALSE(answer.at("error").get<std::string>().empty());
    EXPECT_EQ(interpreter.Control(), nullptr);
  }
}

TEST(Line, BlanksAndCarriageReturnsAtTheEndArePassedOver) {
  Interpreter interpreter;
  for (const std::string_view line : {"{\"do\":\"create\"}\r", "{\"do\":\"create\"} ", " {\"do\" : \"create\"} \r"}) {
    EXPECT_EQ(Json::parse(interpreter.DoLine(line)), Json::parse(R"j({"ok":true})j")) << line;
  }
}

TEST(Line, TextsOfAnyCharacterGoThereAndBack) {
  Interpreter interpreter;
  interpreter.DoLine(R"j({"do":"create"})j");
  interpreter.DoLine(
      R"j({"do":"type","control":"txtParameter(0)","text":"m³ \u00b5 \ud83d\ude00 \u0000 \" [[[ } \\"})j");
  const std::string line = interpreter.DoLine(R"j({"do":"get","controls":["txtParameter(0)"]})j");
  EXPECT_EQ(line.find('\n'), std::string::npos);
  EXPECT_EQ(Json::parse(line)["controls"]["txtParameter(0)"]["text"], "m³ µ \xF0\x9F\x98\x80 \0 \" [[[ } \\"s);
}

/// The program at the other end of two pipes.
class Program {
 public:
  explicit Program(const char* option = nullptr) {
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (pipe(in.data()) != 0 || pipe(out.data()) != 0) std::abort();
    pid_ = fork();
    if (pid_ == 0) {
      dup2(in[0], STDIN_FILENO);
      dup2(out[1], STDOUT_FILENO);
      for (const int end : {in[0], in[1], out[0], out[1]}) close(end);
      execl(HTR60_AUTOMATE_PROGRAM, "htr60-automate", option, nullptr);
      _exit(127);
    }
    close(in[0]);
    close(out[1]);
    in_ = in[1];
    out_ = fdopen(out[0], "r");
  }
  ~Program() {
    CloseInput();
    CloseOutput();
    if (pid_ > 0) waitpid(pid_, nullptr, 0);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void Send(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t sent = write(in_, bytes.data(), bytes.size());
      ASSERT_GT(sent, 0);
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
  }
  void CloseInput() {
    if (in_ >= 0) close(in_);
    in_ = -1;
  }
  void CloseOutput() {
    if (out_ != nullptr) std::fclose(out_);
    out_ = nullptr;
  }
  /// The next line; empty at the end.
  std::string Line() {
    std::string line;
    for (int c = std::fgetc(out_); c != EOF && c != '\n'; c = std::fgetc(out_)) line.push_back(static_cast<char>(c));
    return line;
  }
  /// Waits for the end; the exit status, or -1 where a signal ended it.
  int Status() {
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t pid_ = -1;
  int in_ = -1;
  std::FILE* out_ = nullptr;
};

TEST(Program, AnswersEachLineAtOnceAndInOrder) {
  Program program;
  program.Send("{\"do\":\"create\"}\n");
  EXPECT_EQ(program.Line(), R"j({"ok":true})j");  // before anything else is sent: it was flushed
  program.Send("garbage\n\n\xFF\r\n{\"do\":\"set\",\"member\":\"SubPage\",\"value\":\"x\"}\r\n{\"do\":\"members\"}");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Json::parse(program.Line())["ok"], false);
  EXPECT_EQ(program.Line(), R"j({"ok":true})j");
  program.CloseInput();  // the last line has no end
  EXPECT_EQ(Json::parse(program.Line())["members"]["SubPage"], "x");
  EXPECT_EQ(program.Line(), "");
  EXPECT_EQ(program.Status(), 0);
}

TEST(Program, AHugeLineIsALineLikeAnyOther) {
  Program program;
  const std::string text(2 << 20, 'a');
  program.Send("{\"do\":\"create\"}\n{\"do\":\"set\",\"member\":\"SubPage\",\"value\":\"" + text + "\"}\n");
  EXPECT_EQ(program.Line(), R"j({"ok":true})j");
  EXPECT_EQ(program.Line(), R"j({"ok":true})j");
  program.Send(text + "\n" + std::string(1 << 20, '{') + "\n");
  EXPECT_EQ(Json::parse(program.Line())["ok"], false);
  EXPECT_EQ(Json::parse(program.Line())["ok"], false);
  program.CloseInput();
  EXPECT_EQ(program.Status(), 0);
}

TEST(Program, QuitEndsItAndNothingBehindIsAnswered) {
  Program program;
  program.Send("{\"do\":\"quit\"}\n{\"do\":\"create\"}\n");
  EXPECT_EQ(program.Line(), R"j({"ok":true})j");
  EXPECT_EQ(program.Line(), "");
  EXPECT_EQ(program.Status(), 0);
}

TEST(Program, WhatCannotBeWrittenOrReadEndsItWithASentence) {
  const std::filesystem::path errors = std::filesystem::path(testing::TempDir()) / "htr60 errors";
  const std::string create = R"j(echo '{"do":"create"}' |)j";
  const std::string program = " '" HTR60_AUTOMATE_PROGRAM "' ";
  const std::string commands[] = {
      create + program + ">/dev/full",     create + program + ">&-",  program + "--help >/dev/full",
      program + "--version >/dev/full",    program + "--version >&-", program + "</tmp >/dev/null",
      create + program + "<&- >/dev/null",
  };
  for (const std::string& command : commands) {
    const int status = std::system((command + " 2>'" + errors.string() + "'").c_str());
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << command << " " << status;
    std::string sentence;
    std::getline(std::ifstream(errors) >> std::ws, sentence);
    EXPECT_TRUE(sentence.starts_with("htr60-automate: ")) << command << " " << sentence;
  }
  std::filesystem::remove(errors);
}

TEST(Program, AClosedPipeEndsItWithAStatusAndNotBySignal) {
  Program program;
  program.CloseOutput();
  program.Send("{\"do\":\"create\"}\n");
  EXPECT_EQ(program.Status(), 1);
}

TEST(Program, Options) {
  Program help("--help");
  EXPECT_NE(help.Line().find("htr60-automate"), std::string::npos);
  Program unknown("--nonsense");
  EXPECT_EQ(unknown.Line(), "");
  EXPECT_EQ(unknown.Status(), 2);
}

}  // namespace
}  // namespace htr60::automation
