#pragma once

// The one QGuiApplication of a test program, without a display. Call before anything of Qt's.
void startApplication();
