#pragma once

#include <QMainWindow>
#include <QTimer>
#include <vector>

#include "desktop/window/desktop_host.h"

class QAction;
class QSplitter;

namespace htr60::desktop {

class ActionArea;
class IdentificationStrip;
class LiveRegion;
class PageArea;
class PageHeader;
class StatusPanels;
class TreePanel;

/// The window of one control. It repaints once a turn from what the form has marked.
class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  enum class Places { kKept, kFresh };

  /// `places`: whether size, splitter and position are those of the last run, and kept for the next.
  MainWindow(DesktopHost& host, Places places);
  ~MainWindow() override;

  TreePanel& Tree() { return *tree_; }
  PageArea& Page() { return *page_; }
  PageHeader& Header() { return *header_; }
  ActionArea& Actions() { return *actions_; }
  IdentificationStrip& Identification() { return *strip_; }
  presentation::Presentation& Presented() { return presented_; }

 Q_SIGNALS:
  /// The operator wants another transmitter: the name of ready-made settings.
  void TransmitterWanted(const QString& preset);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // Where the focus goes once the page that an action opened is in front.
  enum class FocusAfter { kStays, kFirstField, kOpener };

  void MakeLayout();
  void MakeMenus();
  void MakeKeys();
  void Turn();
  void MoveFocus();
  void ActivateNode(const QString& text, int position);
  void ActivateAgain();
  void PressBack();
  void StepFocus(int step);
  void ShowHelp();
  void ShowAbout();
  void PutActionsLast();
  void LimitTree();
  void RestorePlaces();
  void KeepPlaces();

  DesktopHost& host_;
  UserCntrl& control_;
  presentation::Presentation presented_;
  const Places places_;
  IdentificationStrip* strip_;
  QSplitter* splitter_;
  TreePanel* tree_;
  PageHeader* header_;
  PageArea* page_;
  ActionArea* actions_;
  StatusPanels* panels_;
  LiveRegion* live_;
  QAction* offline_;
  std::vector<ControlId> openers_;  // the open buttons that led here, for Back
  ControlId opener_;
  FocusAfter focusAfter_ = FocusAfter::kStays;
  QTimer deadline_;                // time alone changes what is shown
  const void* chained_ = nullptr;  // the page after which the action area stands in the order of Tab
};

}  // namespace htr60::desktop
