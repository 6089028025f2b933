// Reads the documents of the list by the reader that the system brings.

#include <string>

#include "cases.h"
#include "core/xml_documents.h"
#include "shell/answer.h"
#include "simulator/manager/request_document.h"
#include "text/failure.h"

namespace htr60 {
namespace {

bool HasNoOther(const Answer& answer) {
  try {
    (void)answer.Text("U");
    return false;
  } catch (const RuntimeFailure&) {
    return true;
  }
}

/// The whole list, so that one run tells of every difference.
template <class Look>
void ForEach(const XmlDocuments& documents, Look&& look) {
  std::string wrong;
  for (const XmlDocument& d : documents) {
    if (!look(d)) wrong += (wrong.empty() ? "" : "; ") + d.name;
  }
  client::Check(wrong.empty(), wrong.c_str(), __FILE__, __LINE__);
}

void Answers() {
  AnswerReader reader;  // one for all: a failed document must leave no trace
  ForEach(XmlDocuments("A", R"(<P tag="T" value="1F"/>)"), [&](const XmlDocument& d) {
    const Answer* answer = reader.Read(d.text);
    if (!TakenOnWindows(d.verdict)) return answer == nullptr;
    return answer != nullptr && answer->Number("T") == 31 && HasNoOther(*answer);
  });
}

void Requests() {
  ForEach(XmlDocuments("ViewData", R"(<ControlData Attribute1="1F"/>)"), [](const XmlDocument& d) {
    const auto attributes = sim::ParseRequest(d.text);
    if (!TakenOnWindows(d.verdict)) return !attributes.has_value();
    return attributes.has_value() && attributes->front() == "1F" && !(*attributes)[1].has_value();
  });
}

void Texts() {
  AnswerReader reader;
  const Answer* answer =
      reader.Read("<A><P tag='\xC3\xA4&#9;\xF0\x9D\x84\x9E' value='&lt;&amp;'/><P value='2'/><P tag='E'/></A>");
  CHECK(answer != nullptr);
  CHECK(answer->Text("\xC3\xA4\t\xF0\x9D\x84\x9E") == "<&");
  bool missing = false;
  try {
    (void)answer->Text("E");
  } catch (const RuntimeFailure&) {
    missing = true;
  }
  CHECK(missing);
}

class Throwing final : public XmlElements {
 public:
  void OnStart(const char*, const char* const*) override { throw RuntimeFailure("no"); }
};

void ElementsThatThrow() {
  XmlReader reader;
  Throwing throwing;
  CHECK(!reader.Read("<A/>", throwing));
  AnswerReader answers;
  CHECK(answers.Read("<A/>") != nullptr);
}

constexpr client::Case kCases[] = {
    {"answers", &Answers},
    {"requests", &Requests},
    {"texts", &Texts},
    {"elements that throw", &ElementsThatThrow},
};

}  // namespace
}  // namespace htr60

int main() { return htr60::client::RunCases(htr60::kCases); }
