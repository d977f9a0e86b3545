#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>

// A WAV file with a sine of 440 Hz, half as loud as can be: one channel, 16 bits, 44.1 kHz.
inline std::string tone(double seconds) {
  constexpr std::uint32_t kRate = 44'100;
  std::string file;
  const auto number = [&](std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) file += static_cast<char>(value >> (8 * i));
  };
  const auto count = static_cast<std::uint32_t>(seconds * kRate);
  file += "RIFF";
  number(36 + 2 * count, 4);
  file += "WAVEfmt ";
  number(16, 4);
  number(1, 2);
  number(1, 2);
  number(kRate, 4);
  number(2 * kRate, 4);
  number(2, 2);
  number(16, 2);
  file += "data";
  number(2 * count, 4);
  for (std::uint32_t i = 0; i < count; ++i)
    number(static_cast<std::uint16_t>(
               std::lround(16384 * std::sin(2 * std::numbers::pi * 440 * i / kRate))),
           2);
  return file;
}
