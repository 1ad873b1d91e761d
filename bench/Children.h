// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <stdexcept>

namespace bench {

/// A program that is needed for a row could not be run to its end, or said nothing sensible.
class CannotRun : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Which bus the program sees.
enum class Bus {
    Machine,    ///< the computer's own
    Simulated,  ///< that of the camera simulator, with one camera
    TwoCameras,
    LargePictures,  ///< two cameras, each with a picture of 1 MiB
    SlowCameras,    ///< sixteen, each of which takes 20 ms for an answer
};

/// Runs a program of the benchmarks and returns the object that it prints. @p scene is one of
/// Scene.h, or null. Throws CannotRun.
[[nodiscard]] QJsonObject run(const QString& program, Bus bus = Bus::Machine,
                              const char* scene = nullptr);

}  // namespace bench
