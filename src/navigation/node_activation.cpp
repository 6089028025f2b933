#include <algorithm>

#include "navigation/tree.h"

namespace htr60 {
namespace {

constexpr int kSelectedWhileDisconnected = 4;  // a position, whatever node stands there
constexpr int kStateRead = 91;

const NodeRow* FindRow(UserCntrl& c, std::string_view text) {
  for (const PageUnit* unit : c.Pages().units) {
    for (const NodeRow& row : unit->nodes) {
      const bool named =
          std::any_of(row.texts.begin(), row.texts.end(), [&](const NodeText& node) { return node.text == text; });
      if (named && (row.when == nullptr || row.when(c))) return &row;
    }
  }
  return nullptr;
}

void SetPageNames(UserCntrl& c, const NodeRow& row, std::string_view text) {
  c.CurrentPage = row.page.empty() ? text : row.page;
  if (!row.subPage.empty()) c.SubPage = row.subPage;
  if (row.also) row.also(c, text);
}

void ShowOfflineNode(UserCntrl& c, int position) {
  if (position > 0) c.form.treeView.SetExpanded(position, true);
  c.form.cmdSave.SetEnabled(true);
}

void ActivateConnected(UserCntrl& c, const NodeRow& row, std::string_view text, int position) {
  SetPageNames(c, row, text);
  if (row.readsOnce) ShowOfflineNode(c, position);
  if (row.frame) c.form.At(row.frame).SetVisible(true);
  if (row.strip) c.form.At(row.strip).SetIndex(0);
  c.form.cmdWriteParameter.SetEnabled(row.writeEnabled);
  if (row.firstVisit != nullptr) c.FirstVisit(row.firstVisit);
  if (row.polls) c.StartTimer(row.timer, row.interval);
  const bool asks = row.readsOnce && c.OfflineAsked == kClear;
  if (asks) c.OfflineAsked = kSet;
  if (const int read = asks ? kStateRead : row.read; read != 0) c.ReadBlock(read);
}

void ActivateDisconnected(UserCntrl& c, std::string_view text, int position) {
  c.BlockSelector = "None";
  c.form.cmdSave.SetEnabled(true);
  c.form.cmdWriteParameter.SetEnabled(false);
  const NodeRow* row = FindRow(c, text);
  if (row != nullptr && row->readsOnce) {
    SetPageNames(c, *row, text);
    ShowOfflineNode(c, position);
  } else {
    c.ShowBox("Device is Disconnected!", "Information");
    c.form.treeView.Select(kSelectedWhileDisconnected);
    c.form.treeView.SetExpanded(kSelectedWhileDisconnected, true);
  }
  if (c.OfflineAsked != kClear) return;
  // Here the stored document goes out as it stands, and panel 4 keeps its text.
  c.OfflineAsked = kSet;
  c.RequestCode = std::to_string(kStateRead);
  c.ReadQuietly();
}

}  // namespace

void OnTreeNodeClick(UserCntrl& c, std::string_view text, int position) {
  c.form.cmdBack.SetEnabled(false);
  c.form.cmdSave.SetEnabled(false);
  c.RequestCode = "0";
  c.HideAllFrames();
  c.StopPollingTimers();
  if (c.ConnectionState == kDisconnected) return ActivateDisconnected(c, text, position);
  if (const NodeRow* row = FindRow(c, text)) ActivateConnected(c, *row, text, position);
}

}  // namespace htr60
