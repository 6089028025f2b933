#include "desktop/window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/docks/docks.h"
#include "desktop/docks/simulator/simulator_dock.h"
#include "desktop/edge.h"
#include "desktop/figure/drawings.h"
#include "desktop/page/page_area.h"
#include "desktop/qt_text.h"
#include "desktop/window/action_area.h"
#include "desktop/window/identification_strip.h"
#include "desktop/window/live_region.h"
#include "desktop/window/page_header.h"
#include "desktop/window/status_panels.h"
#include "desktop/window/tree_panel.h"
#include "observe/simulator_panel.h"

namespace htr60::desktop {
namespace {

// Units of 1/96 inch.
constexpr int kSmallestWidth = 900;
constexpr int kSmallestHeight = 600;
constexpr int kFirstWidth = 1100;
constexpr int kFirstHeight = 720;
constexpr int kSmallestTree = 180;
constexpr int kSmallestPageWidth = 620;  // beside the longest tree
constexpr int kSmallestPageHeight = 400;

constexpr int kIconSide = 32;  // pixels

constexpr const char* kGeometryKey = "window/geometry";
constexpr const char* kSplitterKey = "window/splitter";

presentation::DataLine::TimeOfDay TimeOfDay(const DesktopHost& host) {
  const QDateTime start = host.Time().Start();
  return [start](std::int64_t now) { return start.addMSecs(now).toString(QStringLiteral("HH:mm:ss")).toStdString(); };
}

}  // namespace

MainWindow::MainWindow(DesktopHost& host, Places places)
    : host_(host),
      control_(host.Control()),
      presented_(control_, {.now = [&host] { return host.Time().Now(); },
                            .timeOfDay = TimeOfDay(host),
                            .simulated = host.Simulated(),
                            .active = [&host] { return observe::ActiveWords(host.Transmitter()); },
                            .changed = [&host] { host.WantTurn(); }}),
      keys_(presented_, *this),
      places_(places) {
  setWindowIcon(DrawingIcon(QStringLiteral("htr60"), kIconSide));
  MakeLayout();
  docks_ = new Docks({host_, presented_}, *this);
  MakeMenus();
  setMinimumSize(Pixels(*this, kSmallestWidth), Pixels(*this, kSmallestHeight));
  resize(Pixels(*this, kFirstWidth), Pixels(*this, kFirstHeight));
  RestorePlaces();
  host_.SetBoxParent(this);
  Connect(&host_, &DesktopHost::TurnEnded, this, &MainWindow::Turn);
  tree_->Apply();
  LimitTree();
  panels_->Apply(control_.form.statusBar);
  Turn();
  tree_->setFocus();
}

MainWindow::~MainWindow() {
  // While the presentation stands: a window that hides takes the focus from its fields, and they tell of it.
  hide();
  delete docks_;
  delete takeCentralWidget();
}

void MainWindow::MakeLayout() {
  auto* all = new QWidget(this);
  auto* column = new QVBoxLayout(all);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  strip_ = new IdentificationStrip(all);
  splitter_ = new QSplitter(Qt::Horizontal, all);
  splitter_->setChildrenCollapsible(false);
  panels_ = new StatusPanels(all);
  column->addWidget(strip_);
  column->addWidget(splitter_, 1);
  column->addWidget(panels_);
  live_ = new LiveRegion(all);

  tree_ = new TreePanel(control_.form.treeView, splitter_);
  splitter_->addWidget(tree_);
  splitter_->addWidget(MakePageColumn());
  splitter_->setStretchFactor(0, 0);
  splitter_->setStretchFactor(1, 1);
  setCentralWidget(all);

  Connect(&keys_, &KeyRouter::Acted, this, &MainWindow::Turn);
  Connect(&keys_, &KeyRouter::HelpWanted, this, &MainWindow::ShowHelp);
  Connect(&keys_, &KeyRouter::NodeWanted, tree_, &TreePanel::ActivateCurrent);
  Connect(tree_, &TreePanel::NodeActivated, this,
          [this](const QString& text, int position) { presented_.Activate(ToUtf8(text), position); });
  Connect(page_, &PageArea::ReopenPressed, this, [this] { presented_.Reopen(); });
  Connect(page_, &PageArea::CloseWanted, this, [this] { close(); });
  Connect(&keys_, &KeyRouter::CloseWanted, this, [this] { close(); });
  Connect(strip_, &IdentificationStrip::HealthPressed, this, [this] { presented_.OpenHealth(); });
  Connect(actions_, &ActionArea::BackPressed, this, [this] { presented_.Press(id::cmdBack); });
  Connect(actions_, &ActionArea::RevertPressed, this, [this] {
    presented_.Revert();
    Turn();
  });
  Connect(actions_, &ActionArea::WritePressed, this, [this] {
    page_->Press(id::cmdWriteParameter);
    Turn();
  });
  Connect(actions_, &ActionArea::FooterPressed, this, [this] {
    presented_.StepCounted();
    Turn();
  });
}

// Header and page scroll together where the window is smaller than they can be; the action area stays.
QWidget* MainWindow::MakePageColumn() {
  auto* right = new QWidget(splitter_);
  auto* column = new QVBoxLayout(right);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* scroll = new QScrollArea(right);
  scroll->setObjectName(QStringLiteral("pageScroll"));
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  auto* shown = new QWidget(scroll);
  shown->setMinimumSize(Pixels(*this, kSmallestPageWidth), Pixels(*this, kSmallestPageHeight));
  auto* inside = new QVBoxLayout(shown);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->setSpacing(0);
  header_ = new PageHeader(shown);
  page_ = new PageArea(control_, presented_, shown);
  inside->addWidget(header_);
  inside->addWidget(page_, 1);
  scroll->setWidget(shown);
  actions_ = new ActionArea(right);
  column->addWidget(scroll, 1);
  column->addWidget(actions_);
  return right;
}

void MainWindow::FitTo(QSize room) {
  const QSize frame(0, style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this));
  room -= frame;
  setMinimumSize(QSize(Pixels(*this, kSmallestWidth), Pixels(*this, kSmallestHeight)).boundedTo(room));
  resize(size().boundedTo(room));
}

// The menus have no letters: Alt and a letter belong to the page and to Write, Save and Back.
void MainWindow::MakeMenus() {
  QMenu* simulator = menuBar()->addMenu(tr("Simulator"));
  offline_ = simulator->addAction(tr("Offline"));
  offline_->setCheckable(true);
  Connect(offline_, &QAction::toggled, this, [this](bool offline) { host_.Transmitter().SetOffline(offline); });
  docks_->Simulator().UseLink(*offline_);
  Connect(&docks_->Simulator(), &SimulatorDock::TransmitterWanted, this, &MainWindow::TransmitterWanted);
  QMenu* presets = simulator->addMenu(tr("Start Anew With"));
  for (const std::string_view name : sim::PresetNames()) {
    const QString preset = ToQt(name);
    QAction* action =
        presets->addAction(preset, this, AtEdge(this, [this, preset] { Q_EMIT TransmitterWanted(preset); }));
    action->setCheckable(true);
    action->setChecked(preset == host_.Preset());
  }
  simulator->addSeparator();
  simulator->addAction(tr("Quit"), this, &MainWindow::close);
  docks_->AddTo(*menuBar()->addMenu(tr("View")));
  QMenu* help = menuBar()->addMenu(tr("Help"));
  QAction* page = help->addAction(tr("This Page"), QKeySequence(Qt::Key_F1), this, AtEdge(this, &MainWindow::ShowHelp));
  page->setAutoRepeat(false);
  help->addAction(tr("About HTR60"), this, AtEdge(this, &MainWindow::ShowAbout));
}

void MainWindow::Turn() {
  const FormChanges changes = presented_.Turn();
  const presentation::Screen& screen = presented_.Show();
  keys_.Hold();
  // A failure of one part leaves the others what has changed for them.
  Guarded([&] {
    if (changes.tree) {
      tree_->Apply();
      LimitTree();
    }
    tree_->SetMarks(presented_.Marks());
    live_->Announce(presented_.TakeAnnounced());
  });
  Guarded([&] {
    if (changes.status) panels_->Apply(control_.form.statusBar);
    strip_->Apply(screen, ToQt(presented_.HealthTip()));
    const QString tag = strip_->Tag();
    setWindowTitle((tag.isEmpty() ? QString() : tag + QStringLiteral(" - ")) + QStringLiteral("HTR60 - SIMULATED"));
  });
  Guarded([&] { page_->Apply(changes); });
  Guarded([&] {
    header_->Apply(screen);
    actions_->Apply(control_.form, screen);
  });
  docks_->Turn();
  host_.WantTurnAt(presented_.NextDeadline());  // time alone changes what is shown
  keys_.Follow();
}

void MainWindow::ShowHelp() {
  const presentation::HelpText help = presented_.Keys().Help();
  QStringList lines;
  for (const std::string& line : help.lines) lines << ToQt(line);
  QMessageBox box(this);
  box.setWindowTitle(tr("HTR60"));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(help.title));
  box.setInformativeText(lines.join(QStringLiteral("\n\n")));
  box.exec();
}

void MainWindow::ShowAbout() {
  QMessageBox::about(this, tr("About HTR60"),
                     tr("HTR60 %1\nOperator interface of the HTR60 transmitter, here with a simulated one.")
                         .arg(QStringLiteral(HTR60_VERSION)));
}

// No text of the tree is cut while there is room: the splitter gives way, up to half the window.
void MainWindow::LimitTree() {
  const int most = std::max(width() / 2, Pixels(*this, kSmallestTree));
  tree_->setMinimumWidth(std::clamp(tree_->TextWidth(), Pixels(*this, kSmallestTree), most));
  tree_->setMaximumWidth(most);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Guarded([this] { LimitTree(); });
}

void MainWindow::RestorePlaces() {
  if (places_ != Places::kKept) return;
  const QSettings settings;
  restoreGeometry(settings.value(QLatin1String(kGeometryKey)).toByteArray());
  splitter_->restoreState(settings.value(QLatin1String(kSplitterKey)).toByteArray());
  docks_->Restore(settings);
}

void MainWindow::KeepPlaces() {
  if (places_ != Places::kKept) return;
  QSettings settings;
  settings.setValue(QLatin1String(kGeometryKey), saveGeometry());
  settings.setValue(QLatin1String(kSplitterKey), splitter_->saveState());
  docks_->Keep(settings);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  Guarded([this] { KeepPlaces(); });
  if (!GuardedTakes([this] { return !presented_.WantsToClose(); })) return QMainWindow::closeEvent(event);
  event->ignore();
}

}  // namespace htr60::desktop
