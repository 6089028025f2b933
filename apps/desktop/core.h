#pragma once

// What lies below the view, for headers that moc reads. moc cannot parse the form's tables of names (an include within
// an enum) and needs nothing of them.
#ifndef Q_MOC_RUN
#include "form/control_names.h"
#include "form/form.h"
#include "form/layout.h"
#include "presentation/field_help.h"
#include "presentation/flow.h"
#include "presentation/frame_texts.h"
#include "presentation/line_words.h"
#include "presentation/page_rows.h"
#include "presentation/presentation.h"
#include "presentation/shapes.h"
#include "shell/ports.h"
#include "shell/user_cntrl.h"
#endif
