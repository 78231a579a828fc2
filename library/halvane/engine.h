// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/error.h"

#include <memory>
#include <string>
#include <string_view>

namespace halvane::HALVANE_INLINE v1 {

/// The texts of the data files, for programs that keep them in memory. They are read at once and may go
/// afterwards.
struct EngineData {
    std::string_view termfull;   ///< `termfull.vsk`: the complete series of the Sun
    std::string_view term;       ///< `term.vsk`: its largest terms
    std::string_view mterm;      ///< `mterm.vsk`: the nutation and the Moon's periodic terms
    std::string_view elp;        ///< `elp.vsk`: the lunar tables
    std::string_view world = {}; ///< `world.txt`: land; wanted by Hijri rules that ask for the Americas alone
};

/// The theories of the Sun, the Moon and the turning Earth, read once and constant. A copy costs nothing.
/// Every function of the library may be called with one engine by any number of threads at once; none reads
/// a file, but for those of the system's time zones (Clock).
class HALVANE_EXPORT Engine {
public:
    /// Reads the data files of the first folder that holds them: the library's own, `share/halvane` beside
    /// the folder that it lies in (or one above that), and where it was installed.
    /// Error  raises Error: missing_file naming the last folder, damaged_file.
    Engine();
    /// Reads the data files of a folder.
    /// In     folder  path, UTF-8
    explicit Engine(const std::string& folder);
    /// Error  raises Error: damaged_file.
    explicit Engine(const EngineData& data);

    struct Parts;
    /// The library's own.
    const Parts& parts() const { return *parts_; }

private:
    std::shared_ptr<const Parts> parts_;
};

/// The library's version, "5.3.9".
HALVANE_EXPORT const char* version();

/// Is told how far a long work has come, and may end it. The work asks from any of its threads, one at a
/// time.
class HALVANE_EXPORT Progress {
public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    virtual ~Progress();
    /// In     percent  0 to 100
    /// Returns false to end the work, which then raises Error (cancelled).
    virtual bool goes_on(double percent) = 0;
};

} // namespace halvane::HALVANE_INLINEv1
