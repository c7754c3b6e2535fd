#pragma once
// The program's icons: SVG pictures in the resources, by their image key ("graph", "zoomin"...).

#include <QIcon>
#include <string>

namespace vt {

// The icon of an image key, drawn crisp at the usual sizes; an empty icon for an unknown key.
QIcon IconFor(const std::string& key);

} // namespace vt
