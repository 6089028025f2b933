#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "figures/figure.h"
#include "observe/observer.h"
#include "shell/user_cntrl.h"

namespace htr60::observe {

/// One value of a field as an answer has set it.
struct TrendSample {
  std::int64_t at = 0;
  double value = 0;          ///< not a number where the text is none
  std::uint16_t unit = 0;    ///< among the field's units
  std::uint16_t status = 0;  ///< among its statuses
  bool bad = false;          ///< its status says so, or it is no number
};

/// A live field that the operator follows.
struct TrendField {
  ControlId control{};
  std::string name;         ///< "AI 1 View, Output, Value"
  ControlId unitControl{};  ///< or a fixed text
  std::string unitText;
  ControlId statusControl{};  ///< none: it has no status
  std::string page;           ///< the control's page where several share the frame; empty: any
  int block = 0;              ///< output of that Analog Input; 0: none
  std::set<int> codes;        ///< reads whose answers have set it
  std::int64_t interval = 0;  ///< of the timer that polls it, ms; 0: none has yet
  std::uint32_t sets = 0;
  std::vector<std::string> units;
  std::vector<std::string> statuses;
  std::deque<TrendSample> samples;  ///< the oldest first
};

enum class TrendState : std::uint8_t {
  kWaiting,  ///< no value yet
  kLive,     ///< its page polls it
  kEnded,    ///< no page polls it any more
};
std::string_view NameOf(TrendState state);

/// One axis with the curves of its unit.
struct TrendPlot {
  std::string unit;
  std::vector<std::size_t> fields;
  Figure figure;
};

/// What a field shows at the cursor, or now.
struct TrendReading {
  std::int64_t at = 0;
  std::string value;
  std::string unit;
  std::string status;
};

/// Follows up to four live fields of the pages while they are polled. What it keeps is bounded in time and in number.
class Trend final : public TrafficListener {
 public:
  static constexpr std::size_t kMostFields = 4;
  static constexpr std::size_t kMostSamples = 4'096;  ///< of a field: more than the fastest poll gives in an hour
  static constexpr std::array<int, 4> kWindows = {1, 5, 15, 60};  ///< minutes

  struct Surroundings {
    std::function<std::string(std::int64_t)> timeOfDay;  ///< "hh:mm:ss"
    std::function<std::string(std::int64_t)> timeStamp;  ///< for a file: with date and milliseconds where there are any
  };

  Trend(UserCntrl& control, Observer& observer, Surroundings surroundings);
  ~Trend() override;
  Trend(const Trend&) = delete;
  Trend& operator=(const Trend&) = delete;

  /// What can be done with a field of a page.
  enum class Offer : std::uint8_t { kNone, kAdd, kFull, kRemove };
  Offer Offers(ControlId field) const;
  /// False where it is no live number, is followed already, or there are four.
  bool Add(ControlId field);
  bool Remove(ControlId field);
  void RemoveAt(std::size_t index);
  void Clear();

  const std::vector<TrendField>& Fields() const { return fields_; }
  TrendState StateOf(const TrendField& field) const;

  void SetWindow(int minutes) { window_ = minutes; }
  int Window() const { return window_; }
  /// While it is held the time stands still; the fields go on.
  void Hold(bool held);
  bool Held() const { return heldAt_.has_value(); }
  /// What is seen, from and to.
  std::int64_t From() const { return To() - std::int64_t{window_} * 60'000; }
  std::int64_t To() const { return heldAt_.value_or(observer_.Now()); }

  /// A moment that is looked at; none: now.
  void SetCursor(std::optional<std::int64_t> at) { cursor_ = at; }
  std::optional<std::int64_t> Cursor() const { return cursor_; }
  /// To the next sample before or behind the cursor.
  void StepCursor(int direction);
  /// The value at the cursor, or the last one; none where there is none or a gap.
  std::optional<TrendReading> Reading(const TrendField& field) const;

  /// One for each unit, in the order in which the fields came.
  std::vector<TrendPlot> Plots() const;
  /// What is seen: time, field, value, unit, status.
  std::string Csv() const;
  /// Rises when something new is to be seen but for the passing of time.
  std::uint64_t Revision() const { return revision_; }
  /// Bytes that the samples take.
  std::size_t Footprint() const;

  void OnAnswer(const Entry& answer, const Entry* request) override;
  void OnHandled(int code) override;

 private:
  struct Place {
    const PageLayout* page = nullptr;
    const LayoutGroup* group = nullptr;
    std::size_t row = 0;
  };
  struct Limit {
    std::string_view name;
    double value = 0;
    std::string unit;
  };

  /// A live number of some page, as the last answer that has set it left it.
  struct Standing {
    ControlId control{};
    std::uint32_t sets = 0;
    std::int64_t at = 0;
    int code = 0;  ///< of the read; 0: no answer has set it
    std::string page;
  };

  std::optional<Place> PlaceOf(ControlId field) const;
  std::optional<double> NumberOf(ControlId field) const;
  std::uint32_t SetsOf(ControlId field) const;
  bool IsPolled(const TrendField& field) const;
  std::int64_t IntervalOf(int code) const;
  bool ComesFromItsPage(const TrendField& field) const;
  void Take(TrendField& field, std::int64_t at, int code);
  void TakeStanding(TrendField& field);
  void Watch(const LayoutRow& row);
  const Standing* FindStanding(ControlId control) const;
  bool GapBetween(const TrendField& field, const TrendSample& a, const TrendSample& b) const;
  const TrendSample* SampleAt(const TrendField& field, std::int64_t at) const;
  TrendReading Read(const TrendField& field, const TrendSample& sample) const;
  void AddCurve(Figure& figure, const TrendField& field, std::size_t series, std::string_view unit, double& low,
                double& high) const;
  void AddLimits(Figure& figure, const TrendPlot& plot, double& low, double& high) const;
  FigureAxis TimeAxis() const;

  UserCntrl& control_;
  Observer& observer_;
  Surroundings surroundings_;
  std::vector<TrendField> fields_;
  std::vector<Standing> standing_;
  std::map<int, std::vector<Limit>> limits_;  // by block
  int window_ = 5;
  std::optional<std::int64_t> heldAt_;
  std::optional<std::int64_t> cursor_;
  std::uint64_t revision_ = 0;
};

}  // namespace htr60::observe
