#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "figures/figure.h"
#include "observe/observer.h"
#include "observe/traffic_text.h"

namespace htr60::observe {

/// A number as the device told it, with what stood beside it.
struct RecordValue {
  double value = 0;
  std::string unit;
  std::string status;
};

/// The span that errors are given in percent of.
struct RecordSpan {
  double lower = 0;
  double upper = 0;
  std::string unit;

  double Width() const { return upper < lower ? lower - upper : upper - lower; }
};

/// One step of a calibration.
struct RecordStep {
  std::int64_t at = 0;
  std::string what;  ///< "Lower trim"
  std::string page;
  std::optional<double> applied;
  std::string unit;
  std::optional<RecordValue> found;  ///< what the device showed before
  std::optional<RecordValue> left;   ///< and what it shows since
  std::optional<RecordSpan> span;
  std::string verdict;  ///< of the device; empty: it has told none
  std::string remark;
  std::string who;       ///< the operator's name, once another one has taken over; empty: as the record's
  bool open = false;     ///< its re-read is awaited
  bool refused = false;  ///< by the device, or not sent: what was applied is in doubt

  std::optional<double> FoundError() const { return ErrorOf(found); }
  std::optional<double> LeftError() const { return ErrorOf(left); }

 private:
  std::optional<double> ErrorOf(const std::optional<RecordValue>& value) const;
};

/// Who the instrument is, for the head of a record.
struct RecordHead {
  std::string tag, manufacturer, serialNumber, firmware, measurement;
  std::string simulated;  ///< "SIMULATED: tank"; empty for an instrument
  std::string date;
};

/// A drawing of the errors of one unit.
struct RecordChart {
  std::string unit;
  Figure figure;
};

/// Keeps by itself what is calibrated: trims, reference calibrations, characterizations, density calibrations.
class Record final : public TrafficListener {
 public:
  static constexpr std::size_t kMostSteps = 500;
  using TimeOfDay = std::function<std::string(std::int64_t)>;

  Record(Observer& observer, char decimalSeparator, TimeOfDay timeOfDay);
  ~Record() override;
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;

  const std::vector<RecordStep>& Steps() const { return steps_; }
  /// From now on, and of the steps that have no name yet.
  void SetOperator(std::string name);
  const std::string& Operator() const { return operator_; }
  const std::string& OperatorOf(const RecordStep& step) const { return step.who.empty() ? operator_ : step.who; }
  /// Who has done the steps, each name once: "A. Weber, B. Klein".
  std::string Operators() const;
  /// Of one step; empty: the record's. False where there is no such step.
  bool SetOperatorOf(std::size_t step, std::string name);
  /// False where there is no such step.
  bool SetRemark(std::size_t step, std::string remark);
  /// In percent of span; none: no band and no judgement.
  void SetTolerance(std::optional<double> percent);
  std::optional<double> Tolerance() const { return tolerance_; }
  void Clear();
  /// Rises with each change.
  std::uint64_t Revision() const { return revision_; }

  enum Column : int {
    kTime,
    kStep,
    kApplied,
    kFound,
    kFoundError,
    kLeft,
    kLeftError,
    kUnit,
    kVerdict,
    kRemark,
    kOperator,
    kColumns
  };
  static constexpr bool IsNumber(std::size_t column) { return column >= kApplied && column <= kLeftError; }
  /// Of the columns that are shown: that of the operators, the last one, only where there are several.
  std::size_t ColumnsShown() const { return Names().size() > 1 ? kColumns : kOperator; }
  static std::array<std::string_view, kColumns> Heads();
  std::array<std::string, kColumns> Cells(std::size_t step) const;
  /// "Tag: HTR60-1" and so on: the title block.
  std::vector<std::pair<std::string, std::string>> Block(const RecordHead& head) const;
  /// "Worst as left: 0.12 % of span, Upper trim", whether it is within the tolerance; empty where there is no error.
  std::vector<std::string> Worst() const;
  std::vector<RecordChart> Charts() const;

  std::string Csv(const RecordHead& head) const;
  std::string Html(const RecordHead& head) const;

  void OnRequest(const Entry& request) override;
  void OnAnswer(const Entry& answer, const Entry* request) override;

 private:
  struct Known {
    RecordValue value;
    std::uint64_t request = 0;  // number of the read that it answers
    std::uint64_t outUnit = 0;  // and of the one that told the output unit
  };
  struct Kind;
  static const Kind kKinds[];
  struct Pending {
    const Kind* kind = nullptr;
    std::size_t step = 0;
    std::uint64_t write = 0;  // number of its entry
    std::int64_t valueUntil = 0;
    std::int64_t until = 0;
    // Numbers of the writes behind which what is read is no longer this step's.
    std::uint64_t valueEnd = UINT64_MAX;
    std::uint64_t verdictEnd = UINT64_MAX;
    bool settled = false;  // it has its verdict, or none can be told from the one before
    // Of a self calibration: what stood there before.
    std::optional<std::string> verdictBefore;
    std::optional<RecordValue> pressureBefore;
  };

  void CatchUp(std::uint64_t before);
  void EndPending(std::uint64_t write, bool verdict);
  void Begin(const Kind& kind, const Entry& request, const WireValue& given);
  void BeginCurve(const Entry& request, const std::vector<WireValue>& values);
  RecordStep& AddStep(const Entry& request, std::string what);
  std::optional<RecordSpan> SpanOf(const Kind& kind, const std::string& unit);
  const Known* Behind(std::string_view source, std::uint64_t write, std::uint64_t end) const;
  void TakeLeft(Pending& pending);
  void TakeVerdict(Pending& pending);
  void TakePoint(Pending& pending);
  bool IsComplete(const Pending& pending) const;
  void Look();
  std::vector<std::string> Names() const;
  std::string NumberText(double number) const;
  std::string ErrorText(std::optional<double> error) const;

  Observer& observer_;
  char separator_;
  TimeOfDay timeOfDay_;
  TrafficReader reader_;
  std::map<std::string, Known, std::less<>> known_;               // by source
  std::optional<std::pair<std::string, std::uint64_t>> verdict_;  // the last one, with the number of its read
  std::uint64_t outUnit_ = 0;                                     // number of the last read that told it
  std::map<std::string, RecordSpan, std::less<>> spans_;  // by upper source and unit: the same for a whole record
  std::vector<RecordStep> steps_;
  std::vector<Pending> pending_;
  std::string operator_;
  std::optional<double> tolerance_;
  std::uint64_t revision_ = 0;
};

/// A figure as a drawing for a page of text, in black and one accent.
std::string FigureSvg(const Figure& figure, int width, int height);

}  // namespace htr60::observe
