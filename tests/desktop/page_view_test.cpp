#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QWheelEvent>

#include "desktop/page/choice_field.h"
#include "desktop/page/field_widgets.h"
#include "desktop/page/page_bar.h"
#include "desktop/window/keys.h"
#include "page_area_test.h"
#include "pages/pages.h"

namespace htr60::desktop {
namespace {

TEST_F(PageAreaTest, ShowsThePageShownLastOrTheWord) {
  EXPECT_EQ(area_.Current(), &kFirst);
  EXPECT_EQ(area_.Title(), QStringLiteral("First"));
  control_->CurrentPage = "Test 2";
  control_->form.txtParameter(37).SetText("1");
  Turn();
  EXPECT_EQ(area_.Title(), QStringLiteral("First again"));
  control_->HideAllFrames();
  Turn();
  EXPECT_EQ(area_.Current(), nullptr);
  EXPECT_TRUE(area_.findChild<QWidget*>(QStringLiteral("noPage"))->isVisible());
  control_->form.frmTRDTable.SetVisible(true);
  Turn();
  EXPECT_EQ(area_.Title(), QStringLiteral("Second"));
}

TEST_F(PageAreaTest, TheWaitingStripStandsAboveAnyPage) {
  auto* strip = area_.findChild<QWidget*>(QStringLiteral("waitingStrip"));
  ASSERT_NE(strip, nullptr);
  EXPECT_FALSE(strip->isVisible());
  control_->form.PictMessageTable.SetVisible(true);
  Turn();
  EXPECT_TRUE(strip->isVisible());
  EXPECT_EQ(strip->findChild<QLabel*>()->text(), QStringLiteral("Please Wait! Reanding Points..."));
  EXPECT_TRUE(strip->testAttribute(Qt::WA_TransparentForMouseEvents));
  EXPECT_TRUE(area_.View()->isVisible());
  control_->form.PictMessageTable.SetVisible(false);
  Turn();
  EXPECT_FALSE(strip->isVisible());
}

TEST_F(PageAreaTest, RendersTextsUnitsAndFlags) {
  control_->form.txtParameter(60).SetText("12.500");
  control_->form.txtParameter(299).SetText("Bad - Sensor Failure");
  control_->form.lbArray(466).SetText("kPa");
  control_->form.lbArray(465).SetText("bar");
  control_->form.txtParameter(40).SetEnabled(false);
  Turn();
  EXPECT_EQ(Entry(id::txtParameter(60))->text(), QStringLiteral("12.500"));
  EXPECT_TRUE(Entry(id::txtParameter(60))->isReadOnly());
  EXPECT_TRUE(Entry(id::txtParameter(60))->isEnabled());
  EXPECT_FALSE(Entry(id::txtParameter(40))->isEnabled());
  EXPECT_EQ(Cell(id::txtParameter(299)).Slot()->Current(), Shape::kFault);
  EXPECT_EQ(Entry(id::txtParameter(60))->accessibleName(), QStringLiteral("Square Root, Value, kPa"));
  EXPECT_EQ(Entry(id::txtParameter(40))->accessibleName(), QStringLiteral("Numbers, Lower, bar"));
  // The label's own text is the caption while it has one.
  EXPECT_EQ(Entry(id::txtParameter(0))->accessibleName(), QStringLiteral("Square Root, Pressure Unit (EU)"));
  control_->form.lbArray(107).SetText("");
  control_->form.frmzGroup(12).SetText("New");
  Turn();
  EXPECT_EQ(Group(1).Caption(), QStringLiteral("New"));
  EXPECT_EQ(Entry(id::txtParameter(0))->accessibleName(), QStringLiteral("New, Tag"));
  control_->form.lbArray(107).SetVisible(false);
  control_->form.txtParameter(0).SetVisible(false);
  control_->form.frmzGroup(12).SetVisible(false);
  Turn();
  EXPECT_FALSE(Group(1).isVisible());
}

TEST_F(PageAreaTest, TypingReachesTheFormAndEscTakesItBack) {
  control_->form.txtParameter(37).SetText("1.000");
  Turn();
  TextEntry* entry = Entry(id::txtParameter(37));
  entry->setFocus();
  entry->selectAll();
  SendText(*entry, QStringLiteral("12,5"));
  EXPECT_EQ(control_->form.txtParameter(37).Text(), "12,5");
  Turn();
  EXPECT_EQ(Cell(id::txtParameter(37)).Words(), QStringLiteral("not written"));
  EXPECT_EQ(Cell(id::txtParameter(37)).Hint(), QStringLiteral("Decimal separator here is ."));
  EXPECT_EQ(Cell(id::txtParameter(37)).Slot()->Current(), Shape::kPencil);
  EXPECT_EQ(entry->accessibleDescription(), QStringLiteral("not written; Decimal separator here is .; The upper end."));
  SendKey(*entry, Qt::Key_Escape);
  Turn();
  EXPECT_EQ(control_->form.txtParameter(37).Text(), "1.000");
  EXPECT_EQ(Cell(id::txtParameter(37)).Words(), QString());
  SendKey(*entry, Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), Entry(id::txtParameter(40)));
}

TEST(Words, ThatDoNotFitShowTheirBeginningThenTheStateThenTheHint) {
  WordsLabel label(nullptr);
  const QString words = QStringLiteral("device: HTR60-1, sent: HTR60-2, the instrument is write locked");
  label.SetWords({.words = ToUtf8(words), .state = "differs", .least = "?", .alert = true});
  const auto shownIn = [&](int characters) {
    label.resize(characters * label.fontMetrics().averageCharWidth(), label.fontMetrics().height());
    return label.Shown();
  };
  EXPECT_EQ(shownIn(90), words);
  EXPECT_TRUE(shownIn(40).startsWith(QLatin1String("device: HTR60-1, sent: ")));
  EXPECT_LE(label.fontMetrics().horizontalAdvance(label.Shown()), label.width());
  EXPECT_EQ(shownIn(12), QStringLiteral("differs"));
  EXPECT_EQ(shownIn(2), QStringLiteral("?"));
  EXPECT_EQ(label.minimumSizeHint().width(), label.fontMetrics().horizontalAdvance(u'?')) << "no room from the field";
}

TEST_F(PageAreaTest, WordsThatDoNotFitAreInTheToolTip) {
  const auto field = id::txtParameter(37);
  control_->form.At(field).SetText("1.000");
  presented_.Type(field, "2");
  Turn();
  EXPECT_EQ(Cell(field).ToolTip(), QStringLiteral("The upper end."));
  presented_.Type(field, std::string(80, '7'));
  control_->form.At(field).SetText("1.000");
  Turn();
  EXPECT_EQ(Cell(field).ToolTip(),
            QStringLiteral("replaced by the device, was: %1\nThe upper end.").arg(QString(80, QLatin1Char('7'))));
  EXPECT_EQ(Entry(field)->accessibleDescription(), Cell(field).ToolTip().replace(u'\n', QStringLiteral("; ")));
  control_->form.txtParameter(299).SetText(std::string(80, 'x'));
  Turn();
  EXPECT_EQ(Cell(id::txtParameter(299)).ToolTip(), QString(80, QLatin1Char('x')));
}

TEST_F(PageAreaTest, AFieldsMenuPutsBackWhatWasReplaced) {
  const auto field = id::txtParameter(37);
  control_->form.At(field).SetText("1.000");
  presented_.Type(field, "12.7");
  control_->form.At(field).SetText("1.500");
  Turn();
  const auto texts = [&] {
    QStringList captions;
    const std::unique_ptr<QMenu> menu = Cell(field).MakeMenu();
    for (const QAction* action : menu->actions()) captions << action->text();
    return captions;
  };
  const auto trigger = [&](int number) {
    const std::unique_ptr<QMenu> menu = Cell(field).MakeMenu();
    menu->actions().at(number)->trigger();
    Turn();
  };
  EXPECT_EQ(texts(), (QStringList{QStringLiteral("Copy"), QStringLiteral("Paste"), QStringLiteral("Put back 12.7")}));
  trigger(0);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("1.500"));
  trigger(2);
  EXPECT_EQ(control_->form.At(field).Text(), "12.7");
  EXPECT_EQ(Cell(field).Words(), QStringLiteral("not written"));
  EXPECT_EQ(Cell(field).Slot()->accessibleName(), QStringLiteral("not written"));
  EXPECT_EQ(texts(), (QStringList{QStringLiteral("Copy"), QStringLiteral("Paste")}));
  Entry(field)->selectAll();
  trigger(1);
  EXPECT_EQ(control_->form.At(field).Text(), "1.500");
}

TEST_F(PageAreaTest, GroupsEndWithTheirWidestRowBelowBoldTitles) {
  area_.resize(1600, 800);
  Turn();
  EXPECT_LT(Group(0).width(), 1200);
  EXPECT_EQ(Group(0).width(), Group(0).sizeHint().width());
  EXPECT_TRUE(Group(0).findChild<QGroupBox*>()->font().bold());
  EXPECT_FALSE(Entry(id::txtParameter(37))->font().bold());
  // The caption of the other group is the widest of the page, shown or not.
  const int left = Entry(id::txtParameter(37))->x();
  control_->form.frmzGroup(12).SetVisible(false);
  Turn();
  EXPECT_EQ(Entry(id::txtParameter(37))->x(), left);
}

TEST_F(PageAreaTest, EnterNeverWrites) {
  presented_.Type(id::txtParameter(37), "2");
  auto* write = Field<QPushButton>(id::cmdWriteCalPoint);
  write->setFocus();
  SendKey(*write, Qt::Key_Return);
  SendKey(*write, Qt::Key_Enter);
  QApplication::processEvents();
  EXPECT_TRUE(control_.dtm->writes.empty());
  SendKey(*write, Qt::Key_Space);
  EXPECT_EQ(control_.dtm->writes, std::vector<std::string>{"44"});
  Turn();
  EXPECT_EQ(Cell(id::txtParameter(37)).Words(), QStringLiteral("sent"));
}

TEST_F(PageAreaTest, AnOpenButtonOpensAPageAnew) {
  control_->form.txtParameter(21).SetText("1.000");
  Turn();
  EXPECT_EQ(presented_.States().Of(id::txtParameter(21)), presentation::FieldState::kAsRead);
  area_.Press(id::cmdTablePoints);
  Turn();
  EXPECT_EQ(area_.Title(), QStringLiteral("Second"));
  EXPECT_EQ(Cell(id::txtParameter(21)).Slot()->Current(), Shape::kCircle);
  EXPECT_EQ(QApplication::focusWidget(), Entry(id::txtParameter(21)));
}

TEST_F(PageAreaTest, TabsShowTheirGroupsAndKeysMoveOn) {
  EXPECT_TRUE(Group(0).isVisible());
  EXPECT_FALSE(Group(2).isVisible());
  Entry(id::txtParameter(37))->setFocus();
  const auto press = [&](int key) {
    SendKey(*QApplication::focusWidget(), key, Qt::ControlModifier);
    Turn();
  };
  press(Qt::Key_Tab);
  EXPECT_EQ(control_->form.SSTabTRDSettings.Index(), 1);
  EXPECT_FALSE(Group(0).isVisible());
  EXPECT_TRUE(Group(2).isVisible());
  auto* bar = area_.findChild<PageTabs*>(QStringLiteral("SSTabTRDSettings"));
  EXPECT_EQ(bar->currentIndex(), 1);
  EXPECT_EQ(QApplication::focusWidget(), bar);  // its field went out of sight
  press(Qt::Key_PageUp);
  EXPECT_EQ(control_->form.SSTabTRDSettings.Index(), 0);
  QWheelEvent wheel({5, 5}, bar->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(bar, &wheel);
  EXPECT_EQ(control_->form.SSTabTRDSettings.Index(), 0);
}

TEST_F(PageAreaTest, GroupsStandInTheOrderOfTheirTops) {
  Tab(2);
  EXPECT_LT(Group(3).y(), Group(4).y());
  control_->form.frmzGroup(61).SetTop(100);
  Turn();
  EXPECT_LT(Group(4).y(), Group(3).y());
  area_.findChild<PageTabs*>()->setFocus();
  SendKey(*QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), Cell(id::cmbAIUnitOutScale).Widget());
  SendKey(*QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), Cell(id::txtParameter(92)).Widget());
}

TEST_F(PageAreaTest, AMonitorsStatusStandsInAHighBoxAlone) {
  control_->form.frmGroupParameter(0).SetVisible(true);
  Tab(3);
  QWidget* status = Cell(id::cmbLCDStatusMonit1).Widget();
  EXPECT_FALSE(status->isVisible());
  control_->form.frmGroupParameter(0).SetHeight(1575);
  Turn();
  EXPECT_TRUE(status->isVisible());
  EXPECT_NE(qobject_cast<TextEntry*>(status), nullptr);  // it only shows: it does not open
}

class ChoiceFieldTest : public PageAreaTest {
 protected:
  ChoiceField& Open(ControlId control) {
    auto* field = Field<ChoiceField>(control);
    field->setFocus();
    SendKey(*field, Qt::Key_F4);
    return *field;
  }
  static QStringList Lines(const ChoicePopup& popup) {
    QStringList lines;
    for (int i = 0; i < popup.List()->model()->rowCount(); ++i) {
      lines << popup.List()->model()->index(i, 0).data().toString();
    }
    return lines;
  }
};

TEST_F(ChoiceFieldTest, ChangesByAPickAlone) {
  control_->form.cmbPVSimulateEnable.SetText("Enable");
  Turn();
  auto* field = Field<ChoiceField>(id::cmbPVSimulateEnable);
  QWheelEvent wheel({5, 5}, field->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(field, &wheel);
  for (const int key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End}) SendKey(*field, key);
  EXPECT_EQ(control_->form.cmbPVSimulateEnable.Text(), "Enable");
  EXPECT_EQ(field->Popup(), nullptr);
  Open(id::cmbPVSimulateEnable);
  ASSERT_NE(field->Popup(), nullptr);
  EXPECT_EQ(field->Popup()->SearchLine(), nullptr);
  QListView* list = field->Popup()->List();
  SendKey(*list, Qt::Key_Down);
  EXPECT_EQ(control_->form.cmbPVSimulateEnable.Text(), "Enable");
  SendKey(*list, Qt::Key_Return);
  EXPECT_EQ(control_->form.cmbPVSimulateEnable.Text(), "Disable");
  QApplication::processEvents();
  Open(id::cmbPVSimulateEnable);
  SendKey(*field->Popup()->List(), Qt::Key_Home);
  SendKey(*field->Popup()->List(), Qt::Key_Escape);
  EXPECT_EQ(control_->form.cmbPVSimulateEnable.Text(), "Disable");
}

TEST_F(ChoiceFieldTest, AForeignTextStandsAboveTheRows) {
  control_->form.cmbPVSimulateEnable.SetText("Mpa");
  Turn();
  ChoicePopup& popup = *Open(id::cmbPVSimulateEnable).Popup();
  EXPECT_EQ(Lines(popup).front(), QStringLiteral("Now: Mpa (not in this list)"));
  EXPECT_EQ(popup.List()->model()->index(0, 0).flags(), Qt::NoItemFlags);
  SendKey(*popup.List(), Qt::Key_Return);  // nothing was chosen
  EXPECT_EQ(control_->form.cmbPVSimulateEnable.Text(), "Mpa");
  SendKey(*popup.List(), Qt::Key_Down);
  SendKey(*popup.List(), Qt::Key_Return);
  EXPECT_EQ(control_->form.cmbPVSimulateEnable.Text(), "Enable");
}

TEST_F(ChoiceFieldTest, LongListsAreSearched) {
  static const std::vector<std::string> texts = [] {
    std::vector<std::string> made{"bar g", "mbar", "Bar", "Bar"};
    for (int i = 0; i < 573; ++i) made.push_back("unit " + std::to_string(i));
    return made;
  }();
  for (const std::string& text : texts) control_->form.cmbAIUnitOutScale.AddRow(text);
  control_->form.cmbAIUnitOutScale.SetText("unit 500");
  Tab(2);
  auto* field = Field<ChoiceField>(id::cmbAIUnitOutScale);
  field->setFocus();
  QElapsedTimer clock;
  clock.start();
  SendKey(*field, Qt::Key_B, Qt::NoModifier, QStringLiteral("b"));  // opens with the search, picks nothing
  EXPECT_LT(clock.elapsed(), 500);  // as every measure of time in a test with room for a busy machine
  ASSERT_NE(field->Popup(), nullptr);
  EXPECT_EQ(control_->form.cmbAIUnitOutScale.Text(), "unit 500");
  QLineEdit* search = field->Popup()->SearchLine();
  ASSERT_NE(search, nullptr);
  EXPECT_EQ(search->text(), QStringLiteral("b"));
  SendText(*search, QStringLiteral("ar"));
  EXPECT_EQ(Lines(*field->Popup()), (QStringList{QStringLiteral("Bar"), QStringLiteral("Bar"), QStringLiteral("bar g"),
                                                 QStringLiteral("mbar")}));
  SendKey(*search, Qt::Key_Down);
  SendKey(*search, Qt::Key_Down);
  SendKey(*search, Qt::Key_Return);
  EXPECT_EQ(control_->form.cmbAIUnitOutScale.Text(), "bar g");
}

class CommaTest : public PageAreaTest {
 protected:
  CommaTest() : PageAreaTest(',') {}
};

TEST_F(CommaTest, HintsFollowTheLocale) {
  presented_.Type(id::txtParameter(37), "12.5");
  Turn();
  EXPECT_EQ(Cell(id::txtParameter(37)).Hint(), QStringLiteral("Decimal separator here is ,"));
}

// ---- the pages as they are

class AllPagesTest : public PageAreaTest {
 protected:
  AllPagesTest() : PageAreaTest('.', PagesOfHtr60()) {}
};

TEST_F(AllPagesTest, EveryRowFitsTheSmallestWindow) {
  area_.resize(680, 440);
  for (const PageUnit* unit : PagesOfHtr60().units) {
    for (const PageLayout& page : unit->layouts) {
      if (!page.IsLaidOut()) continue;
      control_->HideAllFrames();
      control_->form.At(page.frame).SetVisible(true);
      const std::size_t tabs = page.strip ? control_->form.At(page.strip).Captions().size() : 1;
      for (std::size_t tab = 0; tab < tabs; ++tab) {
        if (page.strip) control_->form.At(page.strip).SetIndex(static_cast<int>(tab));
        Turn();
        ASSERT_EQ(area_.Current(), &page);
        const auto* scroll = area_.View()->findChild<QScrollArea*>();
        const QSize content = scroll->widget()->size();
        EXPECT_LE(content.width(), scroll->viewport()->width()) << area_.Title().toStdString() << " tab " << tab;
        int rows = 0;  // a figure below them may be out of sight
        for (const GroupView* group : area_.View()->findChildren<GroupView*>()) {
          if (group->isVisible()) rows = std::max(rows, group->geometry().bottom());
        }
        const int height = page.figureBelow ? rows : content.height();
        if (!page.signalFlow) {
          EXPECT_LE(height, scroll->viewport()->height()) << area_.Title().toStdString() << " tab " << tab;
        }
      }
    }
  }
}

TEST_F(AllPagesTest, TabGoesThroughARowBeforeTheNext) {
  control_->HideAllFrames();
  control_->form.frmTRDTable.SetVisible(true);
  control_->form.cmbNrPoints.SetText("21");
  Turn();
  std::vector<QString> order;
  Entry(id::txtParameter(21))->setFocus();
  for (int i = 0; i < 4; ++i) {
    order.push_back(QApplication::focusWidget()->objectName());
    SendKey(*QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order, (std::vector<QString>{QStringLiteral("txtParameter(21)"), QStringLiteral("txtParameter(36)"),
                                         QStringLiteral("txtParameter(22)"), QStringLiteral("txtParameter(52)")}));
}

TEST_F(AllPagesTest, TwoPastedColumnsFillTheEnabledPoints) {
  control_->HideAllFrames();
  control_->form.frmTRDTable.SetVisible(true);
  control_->form.cmbNrPoints.SetText("3");
  Turn();
  presented_.States().NodeActivated();
  QApplication::clipboard()->setText(QStringLiteral("0\t1\r\n50\t 25.5\r\n100\t100\r\n7\t7\r\n"));
  auto* first = Field<TextEntry>(id::txtParameter(21));
  first->setFocus();
  SendKey(*first, Qt::Key_V, Qt::ControlModifier);
  Turn();
  const std::pair<TextId, const char*> points[] = {
      {id::txtParameter(21), "0"},    {id::txtParameter(36), "1"},   {id::txtParameter(22), "50"},
      {id::txtParameter(52), "25.5"}, {id::txtParameter(27), "100"}, {id::txtParameter(53), "100"},
      {id::txtParameter(28), ""},  // above the number of points: disabled
  };
  EXPECT_EQ(area_.Bar().Text(), QStringLiteral("4 rows, 3 points: set 4 points?"));
  EXPECT_EQ(QApplication::focusWidget(), area_.Bar().Buttons().front());
  area_.Bar().Buttons()[1]->click();
  Turn();
  EXPECT_TRUE(area_.Bar().isHidden());
  EXPECT_TRUE(first->hasFocus());
  for (const auto& [field, text] : points) EXPECT_EQ(control_->form.At(field).Text(), text) << text;
  EXPECT_EQ(first->text(), QStringLiteral("0"));

  QApplication::clipboard()->setText(QStringLiteral("12.5"));  // one cell goes where the cursor is
  first->selectAll();
  SendKey(*first, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(control_->form.txtParameter(21).Text(), "12.5");
}

TEST_F(AllPagesTest, TheTablesFigureFollowsTyping) {
  control_->HideAllFrames();
  control_->form.frmTRDTable.SetVisible(true);
  Turn();
  presented_.States().NodeActivated();
  control_->form.cmbNrPoints.SetText("2");
  for (const TextId field : {id::txtParameter(21), id::txtParameter(36)}) control_->form.At(field).SetText("0.000");
  for (const TextId field : {id::txtParameter(22), id::txtParameter(52)}) control_->form.At(field).SetText("100.000");
  Turn();
  FigureWidget* figure = area_.View()->Picture();
  ASSERT_NE(figure, nullptr);
  ASSERT_EQ(figure->Shown().missing, "");
  ASSERT_FALSE(figure->Shown().markers.empty());
  EXPECT_FALSE(figure->accessibleName().isEmpty());
  presented_.Type(id::txtParameter(22), "50");
  Turn();
  const auto hollow = std::count_if(figure->Shown().markers.begin(), figure->Shown().markers.end(),
                                    [](const FigureMarker& m) { return m.shape == MarkerShape::kHollowSquare; });
  EXPECT_EQ(hollow, 1);
  const QPointF at = figure->Place({0, 0});
  QMouseEvent click(QEvent::MouseButtonPress, at, figure->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(figure, &click);
  EXPECT_EQ(QApplication::focusWidget(), Entry(id::txtParameter(21)));
}

class FactoryDoorTest : public AllPagesTest {
 protected:
  FactoryDoorTest() {
    control_->HideAllFrames();
    control_->form.frmfactory.SetVisible(true);
    control_->form.SSTabFactory.SetIndex(5);
    Turn();
  }
};

TEST_F(FactoryDoorTest, ThePasswordIsNeverShown) {
  TextEntry* entry = Entry(id::txtPassword);
  ASSERT_NE(entry, nullptr);
  entry->setFocus();
  SendText(*entry, QStringLiteral("1234567"));
  EXPECT_EQ(control_->form.txtPassword.Text(), "12345");
  EXPECT_EQ(entry->displayText(), QStringLiteral("*****"));
  entry->selectAll();
  QApplication::clipboard()->clear();
  entry->copy();
  EXPECT_EQ(QApplication::clipboard()->text(), QString());
  EXPECT_EQ(Cell(id::txtPassword).ToolTip(), QString());
  EXPECT_EQ(Cell(id::txtPassword).Words(), QString());
  Turn();
  const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(entry);
  ASSERT_NE(accessible, nullptr);
  for (const QAccessible::Text part : {QAccessible::Name, QAccessible::Description, QAccessible::Value}) {
    EXPECT_FALSE(accessible->text(part).contains(QStringLiteral("12345"))) << accessible->text(part).toStdString();
  }
  EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Please, enter the password and click on the botton"));
}

TEST_F(FactoryDoorTest, EnterPressesTheButtonBesideTheField) {
  TextEntry* entry = Entry(id::txtPassword);
  ASSERT_NE(entry, nullptr);
  entry->setFocus();
  SendText(*entry, QStringLiteral("QK474"));
  SendKey(*entry, Qt::Key_Return);
  Turn();
  EXPECT_TRUE(control_->form.frmfactory.Visible());
  EXPECT_EQ(entry->displayText(), QStringLiteral("*****"));
  entry->selectAll();
  SendText(*entry, QStringLiteral("QK475"));
  SendKey(*entry, Qt::Key_Return);
  Turn();
  EXPECT_TRUE(control_->form.frmFactoryPassword.Visible());
  EXPECT_EQ(area_.Title(), QStringLiteral("Factory Menu"));
  area_.Press(id::cmdBack);
  Turn();
  EXPECT_TRUE(control_->form.frmfactory.Visible());
  EXPECT_EQ(entry->text(), QString());
  entry->setFocus();
  SendKey(*entry, Qt::Key_Escape);
  EXPECT_EQ(control_->form.txtPassword.Text(), "");
}

TEST_F(FactoryDoorTest, ASentenceForACaptionStandsAboveItsField) {
  const TextEntry* entry = Entry(id::txtPassword);
  ASSERT_NE(entry, nullptr);
  const QLabel* sentence = nullptr;
  for (const QLabel* label : area_.View()->findChildren<QLabel*>()) {
    if (label->text().startsWith(QStringLiteral("Please, enter the password"))) sentence = label;
  }
  ASSERT_NE(sentence, nullptr);
  EXPECT_TRUE(sentence->isVisible());
  const int left = sentence->mapTo(area_.View(), QPoint()).x();
  EXPECT_LT(sentence->mapTo(area_.View(), QPoint(0, sentence->height() - 1)).y(),
            entry->mapTo(area_.View(), QPoint()).y());
  // The field stands below the beginning of the sentence, and no other tab makes room for all of it.
  EXPECT_LT(entry->mapTo(area_.View(), QPoint()).x(), left + sentence->width() / 2);
  control_->form.SSTabFactory.SetIndex(0);
  Turn();
  EXPECT_LT(Cell(id::cmbBackupRes(1)).Widget()->mapTo(area_.View(), QPoint()).x(), left + sentence->width() / 2);
}

}  // namespace
}  // namespace htr60::desktop
