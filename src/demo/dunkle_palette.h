#pragma once

#include <QPalette>

namespace pelvanto::vorfuehrung {

// The palette of a dark desktop.
inline QPalette dunklePalette() {
  const QColor grund(0x2b, 0x2d, 0x30);
  const QColor feld(0x1f, 0x21, 0x24);
  const QColor schrift(0xe6, 0xe8, 0xea);
  const QColor blass(0x8a, 0x8f, 0x95);
  QPalette palette;
  palette.setColor(QPalette::Window, grund);
  palette.setColor(QPalette::WindowText, schrift);
  palette.setColor(QPalette::Base, feld);
  palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2c));
  palette.setColor(QPalette::Text, schrift);
  palette.setColor(QPalette::PlaceholderText, blass);
  palette.setColor(QPalette::Button, QColor(0x3a, 0x3d, 0x41));
  palette.setColor(QPalette::ButtonText, schrift);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3d, 0x41));
  palette.setColor(QPalette::ToolTipText, schrift);
  palette.setColor(QPalette::Highlight, QColor(0x2a, 0x6d, 0xb0));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x6d, 0xb6, 0xf2));
  palette.setColor(QPalette::Light, QColor(0x55, 0x58, 0x5c));
  palette.setColor(QPalette::Midlight, QColor(0x46, 0x49, 0x4d));
  palette.setColor(QPalette::Mid, QColor(0x22, 0x24, 0x27));
  palette.setColor(QPalette::Dark, QColor(0x18, 0x19, 0x1b));
  palette.setColor(QPalette::Shadow, Qt::black);
  for (const QPalette::ColorRole rolle : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, rolle, blass);
  return palette;
}

}  // namespace pelvanto::vorfuehrung
