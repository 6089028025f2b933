#include "form/widgets.h"

#include <algorithm>

#include "form/form.h"
#include "text/failure.h"
#include "text/utf8.h"

namespace htr60 {

void Control::Mark() { form_->Mark(id_); }

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Mark();
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Mark();
}

void Control::SetText(std::string& text, std::string_view value) {
  if (text == value) return;
  text = value;
  Mark();
}

std::string_view TextField::Cut(std::string_view text) const {
  return maxLength_ == 0 ? text : TakeCharacters(text, static_cast<std::size_t>(maxLength_));
}

void TextField::SetText(std::string_view text) {
  ++sets_;
  Mark();  // an equal text is a set too: a view tells from it that the device has answered
  Control::SetText(text_, Cut(text));
}

void TextField::Type(std::string_view text) { Control::SetText(text_, Cut(text)); }

void Label::SetText(std::string_view text) {
  ++sets_;
  Mark();  // as of a field: most labels hold values that the device has answered
  Control::SetText(text_, text);
}

void Button::SetText(std::string_view text) { Control::SetText(text_, text); }

void ChoiceList::SetText(std::string_view text) {
  if (closed_ && std::find(rows_.begin(), rows_.end(), text) == rows_.end()) {
    throw RuntimeFailure("text is no row of a closed list");
  }
  ++sets_;
  Mark();
  if (text_ == text) return;
  text_ = text;
  form_->events_.ListChanged(*this);
}

void ChoiceList::SetIfAny(std::string_view text) {
  if (!text.empty()) SetText(text);
}

void ChoiceList::Pick(std::size_t row) {
  Control::SetText(text_, rows_.at(row));
  form_->events_.ListChanged(*this);
}

void ChoiceList::Clear() {
  rows_.clear();
  text_.clear();
  Mark();
}

void ChoiceList::AddRow(std::string_view row) {
  rows_.push_back(row);
  Mark();
}

void ChoiceList::Fill(std::span<const std::string_view> rows) {
  Clear();
  rows_.assign(rows.begin(), rows.end());
}

void ListBox::Clear() {
  if (rows_.empty()) return;
  rows_.clear();
  Mark();
}

void ListBox::AddRow(std::string_view row) {
  rows_.emplace_back(row);
  Mark();
}

void TabStrip::SetIndex(int index) {
  if (index == index_) return;
  index_ = index;
  Mark();
  form_->events_.TabChanged(*this);
}

void Frame::SetText(std::string_view text) { Control::SetText(text_, text); }

void Frame::SetTop(int top) {
  if (top_ == top) return;
  top_ = top;
  Mark();
}

void Frame::SetHeight(int height) {
  if (height_ == height) return;
  height_ = height;
  Mark();
}

void Frame::SetVisible(bool visible) {
  Control::SetVisible(visible);
  if (visible && isPage_ && !(form_->frameShownLast_ == Id())) {
    form_->frameShownLast_ = FrameId{Id()};
    Mark();
  }
}

TreeNode& TreeView::At(int position) {
  if (position < 1 || position > static_cast<int>(nodes_.size())) throw RuntimeFailure("no node at that position");
  return nodes_[static_cast<std::size_t>(position - 1)];
}

void TreeView::Clear() {
  nodes_.clear();
  ++generation_;
  form_.MarkTree();
}

int TreeView::AddTopLevel(std::string_view text) {
  nodes_.push_back({.text = text});
  form_.MarkTree();
  return static_cast<int>(nodes_.size());
}

int TreeView::AddChild(int parent, std::string_view text) {
  At(parent);
  nodes_.push_back({.text = text, .parent = parent});
  form_.MarkTree();
  return static_cast<int>(nodes_.size());
}

void TreeView::SetPictures(int position, std::string_view picture, std::string_view selectedPicture) {
  TreeNode& node = At(position);
  node.picture = picture;
  node.selectedPicture = selectedPicture;
  form_.MarkTree();
}

void TreeView::Select(int position) {
  TreeNode& chosen = At(position);
  for (TreeNode& node : nodes_) node.selected = false;
  chosen.selected = true;
  form_.MarkTree();
}

void TreeView::SetExpanded(int position, bool expanded) {
  At(position).expanded = expanded;
  form_.MarkTree();
}

void StatusBar::SetText(int number, std::string_view text) {
  StatusPanel& panel = panels_.at(static_cast<std::size_t>(number - 1));
  ++panel.sets;
  if (panel.text != text) panel.text = text;
  form_.MarkStatus();
}

void StatusBar::SetPicture(int number, std::string_view fileName) {
  StatusPanel& panel = panels_.at(static_cast<std::size_t>(number - 1));
  if (panel.picture == fileName) return;
  panel.picture = fileName;
  form_.MarkStatus();
}

void Timer::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  form_->MarkTimers();
  form_->events_.TimerChanged(*this, Running());
}

void Timer::SetInterval(int milliseconds) {
  interval_ = milliseconds;
  form_->MarkTimers();
  form_->events_.TimerChanged(*this, Running());
}

}  // namespace htr60
