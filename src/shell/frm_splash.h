// frmSplash: what is on the screen while the program starts.
#pragma once

#include <QWidget>
#include <chrono>
#include <memory>

namespace tallmar {

inline constexpr std::chrono::milliseconds kSplashTime{2500};

std::unique_ptr<QWidget> Make_Splash();
// Shows it for the time given, while events run, and takes it away.
void Show_Splash(std::chrono::milliseconds time = kSplashTime);

}  // namespace tallmar
