#pragma once

#include <map>
#include <string>
#include <string_view>

#include "windows/view/controls.h"
#include "windows/view/look.h"

namespace htr60::view {

/// The drawings of the DLL in one ink and size, for the rows of a tree.
class Pictures {
 public:
  Pictures(int side, COLORREF ink);
  ~Pictures();
  Pictures(const Pictures&) = delete;
  Pictures& operator=(const Pictures&) = delete;

  HIMAGELIST List() const { return list_; }
  /// The number of a drawing; -1 where there is none of that name.
  int IndexOf(std::string_view name);

 private:
  int side_;
  COLORREF ink_;
  HIMAGELIST list_;
  std::map<std::string, int, std::less<>> known_;
};

/// An icon file beside the DLL; null where it cannot be loaded. The caller destroys it.
HICON LoadIconFile(std::string_view fileName, int side);

}  // namespace htr60::view
