#include "form/form.h"

namespace htr60 {

Form::Form(FormEvents& events) : events_(events) {
  std::uint16_t ordinal = 0;
  const auto adopt = [&](auto& widgets) {
    for (auto& widget : widgets) {
      widget.form_ = this;
      widget.id_ = ControlId{ordinal++};
    }
  };
  adopt(texts_);
  adopt(labels_);
  adopt(buttons_);
  adopt(choices_);
  adopt(listBoxes_);
  adopt(tabs_);
  adopt(frames_);
  adopt(pictures_);
  for (std::size_t i = 0; i < timers_.size(); ++i) {
    timers_[i].form_ = this;
    timers_[i].id_ = static_cast<TimerId>(i);
  }
  SetStartState();
  TakeChanges();
  announcing_ = true;
}

Form::~Form() = default;

namespace {

std::string_view Text(const TextField& widget) { return widget.Text(); }
std::string_view Text(const Label& widget) { return widget.Text(); }
std::string_view Text(const Button& widget) { return widget.Text(); }
std::string_view Text(const ChoiceList& widget) { return widget.Text(); }
std::string_view Text(const Frame& widget) { return widget.Text(); }
std::string_view Text(const Control&) { return {}; }

}  // namespace

std::string_view Form::TextOf(ControlId control) {
  return Visit(control, [](auto& widget) -> std::string_view { return Text(widget); });
}

const Control& Form::Any(ControlId control) {
  return Visit(control, [](auto& widget) -> const Control& { return widget; });
}

void Form::FirstChange() {
  if (announcing_ && !changes_.any()) events_.Changed();
}

void Form::Mark(ControlId control) {
  if (marked_.test(control.ordinal)) return;
  FirstChange();
  marked_.set(control.ordinal);
  changes_.controls.push_back(control);
}

void Form::MarkTree() {
  FirstChange();
  changes_.tree = true;
}

void Form::MarkStatus() {
  FirstChange();
  changes_.status = true;
}

void Form::MarkTimers() {
  FirstChange();
  changes_.timers = true;
}

FormChanges Form::TakeChanges() {
  FormChanges taken;
  std::swap(taken, changes_);
  changes_.controls.reserve(taken.controls.size());
  for (const ControlId control : taken.controls) marked_.reset(control.ordinal);
  return taken;
}

void Form::DeclarePage(FrameId frame, bool shown) {
  Frame& page = At(frame);
  page.isPage_ = true;
  page.visible_ = shown;
  if (shown) frameShownLast_ = frame;
}

void Form::ForgetFrameShown() {
  if (frameShownLast_) Mark(frameShownLast_);
  frameShownLast_ = FrameId{};
}

}  // namespace htr60
