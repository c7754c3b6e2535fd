#pragma once
// The program's picture on the splash and in the About window: a small graph with a shaded
// band, two curves in the first two rows' colours, and the program's name. Drawn here, at any
// size, from a design of 542 by 240 pixels.

#include <QPixmap>
#include <QSize>

namespace vt::windows {

inline constexpr QSize LogoDesignSize{542, 240};

QPixmap LogoPicture(QSize size = LogoDesignSize);

} // namespace vt::windows
