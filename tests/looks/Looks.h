#pragma once

#include <QSize>

/// A state that the user can see: the picture of that name shows it. The tests of each front-end define the
/// steps that lead there.
struct Look
{
    const char *name;
    QSize size;
    const char *steps;
};

inline constexpr Look looks[] = {
    {"bar-prompt", {400, 230}, "view, bar prompt drawCaptcha, rest 300"},
    {"bar-prompt-2x", {400, 230}, "view, bar prompt drawCaptcha, rest 300, ratio 2"},
    {"bar-prompt-hant", {400, 230}, "language zh-Hant, view, bar prompt drawCaptcha, rest 300"},
    {"bar-error-tappable", {400, 230}, "view, bar error loadFaild, rest 300"},
    {"bar-error-passing", {400, 230}, "view, bar error fail, rest 300"},
    {"bar-error-170", {170, 98}, "view, bar error loadFaild, rest 300"},
    {"bar-error-hans", {400, 230}, "language zh-Hans, view, bar error loadFaild, rest 300"},
    {"bar-error-focused", {400, 230}, "view, bar error No, rest 300, tab"},
    {"bar-success", {400, 230}, "view, bar success clickPass, rest 300"},
    {"bar-half-way", {400, 230}, "view, bar error fail, rest 100"},
    {"dots-early", {200, 115}, "view, dots, rest 300, ratio 3"},
    {"dots-late", {200, 115}, "view, dots, rest 650, ratio 3"},
    {"strip-empty", {400, 40}, "strip, rest 250"},
    {"strip-typed", {400, 40}, "strip, type a4K, rest 250"},
    {"strip-edited", {400, 40}, "strip, type a4K, rest 250, tab"},
    {"strip-done-focused", {400, 40}, "strip, type a4K, rest 250, tab, tab"},
    {"strip-busy", {400, 40}, "strip, busy, rest 250, ratio 3"},
    {"strip-pressed", {400, 40}, "strip, type a4K, down, rest 250"},
    {"strip-hant", {400, 40}, "language zh-Hant, strip, rest 250"},
    {"strip-contrast", {400, 40}, "contrast, strip, rest 250"},
    {"badge-waiting", {240, 120}, "ground #5a646e, turning, rest 125, ratio 3"},
    {"badge-opening", {240, 120}, "ground #5a646e, opening, rest 250, ratio 3"},
    {"badge-halo", {240, 120}, "ground #5a646e, opening, rest 850, ratio 3"},
    {"button-normal", {300, 64}, "button"},
    {"button-normal-2x", {300, 64}, "button, ratio 2"},
    {"button-touching", {300, 64}, "button, press 110 30, rest 250"},
    {"button-pressed", {300, 64}, "button, press 110 30, rest 150"},
    {"button-verifying", {300, 64}, "button, status 2, rest 125"},
    {"button-filling", {300, 64}, "button, status 3, rest 500"},
    {"button-waiting", {300, 64}, "button, status 3, rest 1500"},
    {"button-tick-drawn", {300, 64}, "button, status 4, rest 250"},
    {"button-passed", {300, 64}, "button, status 4, rest 700"},
    {"button-cross-drawn", {300, 64}, "button, status 5, rest 250"},
    {"button-failed", {300, 64}, "button, status 5, rest 600"},
    {"button-focused", {300, 64}, "button, focus"},
    {"button-focused-3x", {300, 64}, "button, focus, ratio 3"},
    {"button-disabled", {300, 64}, "button, disable"},
    {"button-hovered", {300, 64}, "button, hover"},
    {"button-of-the-host", {300, 64}, "accent, button, rounded 12, press 15 15, rest 300, ratio 2"},
    {"popup-card", {640, 480}, "button, tap, rest 2000"},
    {"popup-card-2x", {500, 440}, "button, tap, rest 2000, ratio 2"},
    {"popup-card-dark", {640, 480}, "ground black, button, tap, rest 2000"},
    {"popup-characters-hans", {640, 480}, "language zh-Hans, characters, button, tap, rest 2000"},
    {"popup-dark", {640, 480}, "dark, language zh-Hant, characters, button, tap, rest 2000"},
    {"popup-contrast", {320, 480}, "contrast, button, tap, rest 2000"},
    {"popup-phone", {320, 480}, "language zh-Hant, button, tap, rest 2000"},
    {"popup-phone-outage", {320, 480}, "outage, button, tap, rest 2000"},
    {"popup-begun", {640, 480}, "button, tap, rest 0"},
    {"popup-unfolding", {640, 480}, "button, tap, rest 125"},
    {"popup-stroke", {320, 480}, "button, tap, rest 1000, draw"},
    {"popup-stroke-2x", {320, 480}, "button, ratio 2, tap, rest 1000, draw"},
    {"popup-close-focused", {320, 480}, "button, tap, rest 1000, focus-close"},
    {"popup-alternative", {640, 480}, "alternative, button, tap, rest 2000"},
    {"popup-alternative-hans-2x",
     {320, 320},
     "alternative, language zh-Hans, characters, button, tap, rest 2000, ratio 2"},
    {"popup-alternative-dark", {640, 480}, "alternative, dark, contrast, characters, button, tap, rest 2000"},
    {"panel-controls", {414, 300}, "panel, push helpButton, tab, tab"},
    {"panel-hovered", {414, 300}, "panel, hover helpButton, hover adButton"},
    {"panel-pen-keys", {200, 145}, "panel, tab"},
    {"panel-pen", {414, 300}, "panel, tab, pen"},
    {"panel-failed", {414, 300}, "answer refresh 0105, panel, refresh, rest 300"},
    {"panel-alternative", {320, 246}, "alternative, panel"},
    {"panel-alternative-hans-2x", {320, 246}, "alternative, language zh-Hans, panel, ratio 2"},
};
