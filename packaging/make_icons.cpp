// Makes icon files of drawings: make_icons DRAWING.svg ICON.ico [DRAWING.svg ICON.ico]...

#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "icon.h"

namespace {

using htr60::packaging::DrawingError;

void MakeIcon(const std::string& drawingFile, const std::string& iconFile) {
  std::ifstream in(drawingFile, std::ios::binary);
  if (!in) {
    throw DrawingError("cannot be read");
  }
  const std::string svg{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  const htr60::packaging::Drawing drawing = htr60::packaging::ReadDrawing(svg);
  std::vector<htr60::packaging::Image> images;
  for (const int size : htr60::packaging::kIconSizes) {
    images.push_back(Rasterise(drawing, size));
  }
  std::ofstream out(iconFile, std::ios::binary);
  out << htr60::packaging::WriteIcon(images);
  out.close();
  if (!out) {
    throw DrawingError("its icon file cannot be written");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> files(argv + 1, argv + argc);
  if (files.empty() || files.size() % 2 != 0) {
    std::cerr << "usage: make_icons DRAWING.svg ICON.ico [DRAWING.svg ICON.ico]...\n";
    return 2;
  }
  for (std::size_t i = 0; i < files.size(); i += 2) {
    try {
      MakeIcon(files[i], files[i + 1]);
    } catch (const std::exception& failure) {
      std::cerr << files[i] << ": " << failure.what() << '\n';
      return 1;
    }
  }
  return 0;
}
