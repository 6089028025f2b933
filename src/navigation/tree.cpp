#include "navigation/tree.h"

#include <span>

#include "codecs/mEnumeration.h"

namespace htr60 {
namespace {

struct NodeSpec {
  int parent;  ///< position, 0: top level
  std::string_view text;
  std::string_view picture;
};

constexpr std::string_view kSelectedPicture = "Biblio";

constexpr NodeSpec kTop[] = {
    {0, "OnLine Parameterize", "window_list"}, {0, "Observe", "window_list"},
    {0, "Diagnosis", "window_list"},           {1, "Blocks", "edittrash"},
    {4, "Primary Value Type", "forward2"},
};

constexpr NodeSpec kBaseRest[] = {
    {4, "Analog Input 1", "forward2"}, {4, "Analog Input 2", "forward2"}, {4, "Analog Input 3", "forward2"},
    {4, "LCD Config", "forward2"},     {4, "Factory", "konqueror8"},      {1, "Device Identification", "folder1"},
    {2, "AI 1 View", "folder1"},       {2, "AI 2 View", "folder1"},       {2, "AI 3 View", "folder1"},
};

// After the measurement type's own node at position 6.
constexpr NodeSpec kTypeRest[] = {
    {4, "Analog Input 1", "forward2"},
    {4, "Analog Input 2", "forward2"},
    {4, "Analog Input 3", "forward2"},
    {4, "LCD Config", "forward2"},
    {4, "Factory", "konqueror8"},
    {6, "Calibration", "konqueror8"},
    {1, "Device Identification", "folder1"},
    {2, "AI 1 View", "folder1"},
    {2, "AI 2 View", "folder1"},
    {2, "AI 3 View", "folder1"},
};

void AddNodes(UserCntrl& c, std::span<const NodeSpec> nodes) {
  for (const NodeSpec& node : nodes) AddTreeNode(c, node.parent, node.text, node.picture, kSelectedPicture);
}

void BuildTypeTree(UserCntrl& c, std::string_view typeNode) {
  AddNodes(c, kTop);
  AddTreeNode(c, 5, typeNode, "forward2", kSelectedPicture);
  AddNodes(c, kTypeRest);
}

bool IsTopLevel(std::string_view text) {
  return text == "OffLine Parameterize" || text == "OnLine Parameterize" || text == "Observe" || text == "Diagnosis";
}

}  // namespace

void AddTreeNode(UserCntrl& c, int relative, std::string_view text, std::string_view picture,
                 std::string_view selectedPicture) {
  TreeView& tree = c.form.treeView;
  const int position = IsTopLevel(text) ? tree.AddTopLevel(text) : tree.AddChild(relative, text);
  tree.SetPictures(position, picture, selectedPicture);
}

void BuildBaseTree(UserCntrl& c) {
  AddNodes(c, kTop);
  AddNodes(c, kBaseRest);
}

void BuildPressureFlowTree(UserCntrl& c) { BuildTypeTree(c, "Pressure/Flow"); }
void BuildDensityTree(UserCntrl& c) { BuildTypeTree(c, "Density/Concentration"); }
void BuildLevelTree(UserCntrl& c) { BuildTypeTree(c, "Level"); }

void ApplyPrimaryValueType(UserCntrl& c, std::int32_t code) {
  c.form.cmbPVType.SetIfAny(DecodePVType(code));
  const std::string& type = c.form.cmbPVType.Text();
  const std::string& previous = c.PreviousPVType;
  const auto rebuild = [&](void (*build)(UserCntrl&)) {
    c.form.treeView.Clear();
    build(c);
  };
  if (type == "Flow" || type == "Pressure") {
    if (previous != "Flow" && previous != "Pressure") rebuild(BuildPressureFlowTree);
  } else if (type == "Level") {
    if (previous != "Level") rebuild(BuildLevelTree);
  } else if (type == "Density") {
    if (previous != "Density") rebuild(BuildDensityTree);
  }
  c.PreviousPVType = type;
}

}  // namespace htr60
