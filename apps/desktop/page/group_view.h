#pragma once

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <memory>
#include <vector>

#include "desktop/page/field_cell.h"

namespace htr60::desktop {

/// The unit after a value: 16 characters wide, narrower where the page is. `pale`: it stands back behind the value.
class UnitLabel final : public QLabel {
  Q_OBJECT

 public:
  UnitLabel(bool wide, bool pale, QWidget* parent);
  /// Something follows that needs the room.
  void SetClose(bool close);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool wide_;
  bool pale_;
  bool close_ = false;
};

/// One group of a page: its box, and its rows in a grid of captions and lines.
class GroupView final : public QWidget {
  Q_OBJECT

 public:
  GroupView(PageContext context, const PageLayout& page, const LayoutGroup& group, QWidget* parent);

  const LayoutGroup& Group() const { return group_; }
  /// Takes what is in `changed` from the form.
  void Refresh(const ControlSet& changed);
  /// Takes shapes and words.
  void RefreshStates();
  /// The form shows the group's frame and at least one of its rows.
  bool Shows() const;
  int TopOfFrame() const;
  /// It shows a row that takes all the width there is.
  bool Fills() const;
  QSize sizeHint() const override;

  /// Room that the captions want, and what they get so that fields stand in one line down the page.
  int CaptionWidth() const;
  void SetCaptionWidth(int width);
  bool SharesCaptionWidth() const { return group_.columns == 1 && hasCaptions_; }

  QString Caption() const;
  void SetMnemonic(char letter);
  const std::vector<FieldCell*>& Cells() const { return cells_; }

 Q_SIGNALS:
  void Pressed(htr60::ButtonId button);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Row {
    const LayoutRow* row = nullptr;
    QLabel* caption = nullptr;
    FieldCell* cell = nullptr;
    UnitLabel* unit = nullptr;
    QLabel* secondCaption = nullptr;
    FieldCell* second = nullptr;
    int line = 0;
  };
  struct Line {
    QWidget* widget = nullptr;
    QVBoxLayout* column = nullptr;  // the fields, below a caption that stands above them
    QHBoxLayout* box = nullptr;
    WordsLabel* words = nullptr;
    std::vector<std::size_t> rows;
    bool changes = false;  // the operator can change a field in it
    // Before and after the caption of what joins the line: captions and fields stand below each other where there is
    // room.
    QSpacerItem* before = nullptr;
    QSpacerItem* after = nullptr;
    int gridColumn = 0;
  };

  /// Much stands beside each other, so numbers and gaps give way.
  bool IsTight() const { return group_.columns > 1 || page_.tight; }
  void MakeBox(QWidget& body);
  void Build();
  void AddRow(const LayoutRow& row, QGridLayout& grid, int linesInColumn);
  FieldCell* AddCell(const LayoutRow& row, bool second, Line& line);
  void AddUnit(Row& made, Line& line);
  void Finish();
  void AlignJoined();
  void RefreshRow(Row& row);
  int PlaceOfWords(const Line& line) const;
  void RefreshWords(const Line& line);
  bool Shows(const Row& row) const;
  QString CaptionOf(const LayoutRow& row) const;
  QString UnitOf(const LayoutRow& row) const;

  PageContext context_;
  const PageLayout& page_;
  const LayoutGroup& group_;
  QGroupBox* box_ = nullptr;
  QGridLayout* grid_ = nullptr;
  char mnemonic_ = '\0';
  bool buttonsOnly_ = true;
  bool hasCaptions_ = false;
  bool unitBeforeSecond_ = false;
  std::vector<Row> rows_;
  std::vector<Line> lines_;
  std::vector<FieldCell*> cells_;
  std::vector<QPushButton*> openButtons_;
};

}  // namespace htr60::desktop
