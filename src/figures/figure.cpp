#include "figures/figure.h"

#include "figures/analog_input.h"
#include "figures/calibration.h"
#include "figures/characterization.h"
#include "figures/linearization.h"
#include "figures/output_bar.h"
#include "figures/square_root.h"

namespace htr60 {

Figure ComputeFigure(FigureKind kind, const FigureSource& source) {
  switch (kind) {
    case FigureKind::kLinearization:
      return figures::LinearizationFigure(source);
    case FigureKind::kSquareRoot:
      return figures::SquareRootFigure(source);
    case FigureKind::kCharacterization:
      return figures::CharacterizationFigure(source);
    case FigureKind::kCharacterizationEntry:
      return figures::CharacterizationEntryFigure(source);
    case FigureKind::kOutputBar:
      return figures::OutputBarFigure(source);
    case FigureKind::kAnalogInput:
      return figures::AnalogInputFigure(source);
    case FigureKind::kCalibration:
      return figures::CalibrationFigure(source);
    case FigureKind::kNone:
      break;
  }
  return {};
}

}  // namespace htr60
