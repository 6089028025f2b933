#include "desktop/qt_text.h"

#include "presentation/mnemonics.h"

namespace htr60::desktop {

QString WithMnemonic(std::string_view caption, char letter) {
  const auto plain = [](std::string_view text) {
    return ToQt(text).replace(QStringLiteral("&"), QStringLiteral("&&"));
  };
  const std::size_t at = letter == '\0' ? std::string_view::npos : presentation::PlaceOfMnemonic(caption, letter);
  if (at == std::string_view::npos) return plain(caption);
  return plain(caption.substr(0, at)) + u'&' + plain(caption.substr(at));
}

}  // namespace htr60::desktop
