// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace halvane {

struct PageSettings;
struct Timetable;

/// How a program of the batch comes to PDF files. halvane-report has no painter, so it becomes halvane-paper,
/// which has the same command line.
struct PdfMaker {
    /// Asked once the command line is read, before anything is calculated. It returns where `pdf_of` is
    /// there; else the process goes on as another program. Error  raises RunTimeFailure
    std::function<void()> begin;
    /// The pages of a timetable as a file's bytes. Any number of threads may ask at once.
    std::function<std::string(const Timetable&, const PageSettings&)> pdf_of;
};

} // namespace halvane
