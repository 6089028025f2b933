#include "presentation/page_in_words.h"

#include "presentation/field_states.h"

namespace htr60::presentation {
namespace {

void AddTab(Form& form, TabsId strip, int tab, std::string& words) {
  const auto captions = form.At(strip).Captions();
  if (tab >= 0 && tab < static_cast<int>(captions.size())) {
    words.append(", ").append(captions[static_cast<std::size_t>(tab)]);
  }
}

}  // namespace

std::string_view TitleNow(const UserCntrl& control, const PageLayout& page) {
  std::string_view any;
  for (const LayoutTitle& title : page.titles) {
    if (title.page == control.CurrentPage) return title.title;
    if (title.page.empty() || any.empty()) any = title.title;
  }
  return any;
}

std::string PageInWords(UserCntrl& control) {
  const FrameId frame = control.form.FrameShownLast();
  if (!frame || !control.form.At(frame).Visible()) return {};
  for (const PageUnit* unit : control.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      if (page.frame != frame || !page.IsLaidOut()) continue;
      std::string words(TitleNow(control, page));
      const TabsInFront tabs = TabsOf(control.form, page);
      if (page.strip) AddTab(control.form, page.strip, tabs.tab, words);
      if (tabs.inner) AddTab(control.form, tabs.inner, tabs.innerTab, words);
      return words;
    }
  }
  return {};
}

}  // namespace htr60::presentation
