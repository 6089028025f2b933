#include <QLineEdit>
#include <QTabBar>
#include <QTest>

#include "desktop_test.h"

namespace htr60::desktop {
namespace {

class KeyboardTest : public DesktopTest {
 protected:
  /// Presses a key as the platform delivers it: shortcuts first.
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}, bool held = false) {
    QWidget* focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    QTest::simulateEvent(focus, true, key, modifiers, text, held);
    QApplication::processEvents();
  }
  void Type(const char* text) {
    for (const char c : std::string(text)) Key(0, Qt::NoModifier, QString(QLatin1Char(c)));
  }
  char LetterOf(ControlId button) {
    for (const presentation::ScreenButton& shown : window_.Presented().Shown().buttons) {
      if (shown.control == button) return shown.mnemonic;
    }
    return '\0';
  }
};

TEST_F(KeyboardTest, AnAnswerLeavesTheTextOfAnOpenedFieldSelected) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Pressure/Flow"));
  Find<QTabBar>(id::SSTabTRDSettings)->setCurrentIndex(1);
  QApplication::processEvents();
  const char letter = LetterOf(id::cmdTrdOutScale);
  ASSERT_NE(letter, '\0');
  Key(letter, Qt::AltModifier);
  ASSERT_TRUE(WaitFor([&] { return window_.Header().Title() == QStringLiteral("Transducer Output Scale"); }));
  auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(field, nullptr);
  ASSERT_EQ(field->text(), QString()) << "its answer is still to come";
  ASSERT_TRUE(Settle());
  ASSERT_FALSE(field->text().isEmpty());
  Type("20");
  EXPECT_EQ(field->text(), QStringLiteral("20"));
}

}  // namespace
}  // namespace htr60::desktop
