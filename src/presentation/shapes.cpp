#include "presentation/shapes.h"

namespace htr60::presentation {

Shape ShapeOf(FieldState state) {
  switch (state) {
    case FieldState::kNotRead:
      return Shape::kCircle;
    case FieldState::kNotWritten:
      return Shape::kPencil;
    case FieldState::kSent:
      return Shape::kHourglass;
    case FieldState::kConfirmed:
      return Shape::kCheck;
    case FieldState::kStored:
      return Shape::kCheckOverLine;
    case FieldState::kDiffers:
      return Shape::kNotEqual;
    case FieldState::kReplaced:
      return Shape::kDottedNotEqual;
    case FieldState::kChanged:
      return Shape::kFilledTriangle;
    case FieldState::kNotReadBack:
      return Shape::kCrossedHourglass;
    case FieldState::kAsRead:
    case FieldState::kShown:
      break;
  }
  return Shape::kNone;
}

Shape ShapeOf(Mark mark) {
  switch (mark) {
    case Mark::kUncertain:
      return Shape::kWarning;
    case Mark::kBad:
      return Shape::kFault;
    case Mark::kNone:
      break;
  }
  return Shape::kNone;
}

Shape ShapeOf(HealthState health) {
  switch (health) {
    case HealthState::kFailure:
      return Shape::kFailure;
    case HealthState::kFunctionCheck:
      return Shape::kFunctionCheck;
    case HealthState::kOutOfSpecification:
      return Shape::kQuestion;
    case HealthState::kGood:
    case HealthState::kNotRead:
      break;
  }
  return Shape::kNone;
}

}  // namespace htr60::presentation
