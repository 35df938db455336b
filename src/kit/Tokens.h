#pragma once

#include <QFont>

/// The measures every window shares. Lengths in points (device-independent pixels), durations in milliseconds.
namespace vellora::tokens {

inline constexpr int space1 = 4;
inline constexpr int space2 = 8;
inline constexpr int space3 = 12;
inline constexpr int space4 = 16;
inline constexpr int space6 = 24;

inline constexpr int controlRadius = 6;
inline constexpr int panelRadius = 10;
inline constexpr int windowRadius = 12;

inline constexpr int minimumHit = 28;     ///< least width and height of anything that is pressed
inline constexpr int controlHeight = 32;  ///< visible height of buttons and fields
inline constexpr int barHeight = 44;

inline constexpr int menuIcon = 16;
inline constexpr int toastIcon = 15;
inline constexpr int barIcon = 20;

inline constexpr double strokeWidth = 1.0;  ///< hairlines and borders
inline constexpr double iconStroke = 1.75;  ///< at an icon of 20
inline constexpr double focusRingWidth = 2.0;
inline constexpr double focusRingGap = 1.0;  ///< between a control's edge and its ring
inline constexpr int focusRingRoom = 3;      ///< what a control leaves free around itself for its ring

inline constexpr int shadowOffset = 8;
inline constexpr int shadowBlur = 24;
inline constexpr double shadowOpacity = 0.18;

inline constexpr int motionShort = 120;
inline constexpr int motionMedium = 160;
inline constexpr int motionLong = 200;
inline constexpr int toastStay = 2400;
inline constexpr int toastFailureStay = 5000;

}  // namespace vellora::tokens

namespace vellora {

QFont bodyFont();        ///< 13
QFont bodyStrongFont();  ///< 13, semibold: labels of buttons and groups
QFont secondaryFont();   ///< 12
QFont badgeFont();       ///< 11, medium
QFont headingFont();     ///< 15, semibold
QFont titleFont();       ///< 20, semibold: one for a page

/// `base` with figures of one width, so that a running clock or size does not wobble. Qt before 6.7 cannot ask a font
/// for its tabular figures, so they come from a tiny face cut out of Inter with those figures in the usual places;
/// every other character stays as in `base`.
QFont tabularFont(const QFont& base);
QFont tabularFont();  ///< of the body font

}  // namespace vellora
