#pragma once

// The one QGuiApplication of a test program, without a display, on a desktop with one font:
// WINDOW_TEST_FONT names it ("DejaVu Sans", which it is by default, or "Noto Sans"),
// WINDOW_TEST_POINTS its size if it isn't the usual one. Call before anything of Qt's.
void startApplication();
