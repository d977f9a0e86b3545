#pragma once

namespace prefs {

// By these the picker page finds its own views again.
inline constexpr int kRedSliderTag = 201;
inline constexpr int kGreenSliderTag = 202;
inline constexpr int kBlueSliderTag = 203;
inline constexpr int kSliderPanelTag = 204;
inline constexpr int kCustomCellTag = 205;

}  // namespace prefs
