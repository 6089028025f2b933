#pragma once

#include <QMainWindow>
#include <QTimer>

#include "desktop/page/key_router.h"
#include "desktop/window/desktop_host.h"

class QAction;
class QSplitter;

namespace htr60::desktop {

class ActionArea;
class Docks;
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

  /// No larger than `room`, the free area of a screen: below the smallest size what is shown scrolls.
  void FitTo(QSize room);

  TreePanel& Tree() { return *tree_; }
  PageArea& Page() { return *page_; }
  PageHeader& Header() { return *header_; }
  ActionArea& Actions() { return *actions_; }
  IdentificationStrip& Identification() { return *strip_; }
  presentation::Presentation& Presented() { return presented_; }
  Docks& Around() { return *docks_; }

 Q_SIGNALS:
  /// The operator wants another transmitter: the name of ready-made settings.
  void TransmitterWanted(const QString& preset);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeLayout();
  QWidget* MakePageColumn();
  void MakeMenus();
  void Turn();
  void ShowHelp();
  void ShowAbout();
  void LimitTree();
  void RestorePlaces();
  void KeepPlaces();

  DesktopHost& host_;
  UserCntrl& control_;
  presentation::Presentation presented_;
  KeyRouter keys_;
  const Places places_;
  IdentificationStrip* strip_;
  QSplitter* splitter_;
  TreePanel* tree_;
  PageHeader* header_;
  PageArea* page_;
  ActionArea* actions_;
  StatusPanels* panels_;
  LiveRegion* live_;
  Docks* docks_;
  QAction* offline_;
};

}  // namespace htr60::desktop
