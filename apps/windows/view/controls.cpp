#include "windows/view/controls.h"

#include <string>

#include "windows/base/module.h"

namespace htr60::view {
namespace {

/// Made once, for the DLL stays; invalid where the system refuses the manifest.
HANDLE Context() {
  static const HANDLE context = [] {
    const std::wstring file = com::ModuleFile();
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    description.lpSource = file.c_str();
    description.hModule = com::Module();
    description.lpResourceName = MAKEINTRESOURCEW(2);
    return CreateActCtxW(&description);
  }();
  return context;
}

}  // namespace

CommonControls::CommonControls() {
  if (Context() != INVALID_HANDLE_VALUE && ActivateActCtx(Context(), &cookie_) == FALSE) cookie_ = 0;
  INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TREEVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
}

CommonControls::~CommonControls() {
  if (cookie_ != 0) DeactivateActCtx(0, cookie_);
}

}  // namespace htr60::view
