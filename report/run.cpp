// SPDX-License-Identifier: MIT
#include "report/run.h"

#include "stored/programfolder.h"

namespace halvane {

RunOutcome write_report(const Run& run, Progress& progress) {
    return write_run(run, ReportFormat::text, program_path(run.report_name()), progress);
}

RunOutcome write_run(const Run& run, ReportFormat format, const std::string& path, Progress& progress) {
    if (format == ReportFormat::text) {
        const bool has_report = *run.report_name() != '\0';
        Report report(path, has_report ? "\r\n" : "\n");
        const RunOutcome outcome = run.write(report, progress);
        report.commit();
        return outcome;
    }
    TextResult result(path);
    const RunOutcome outcome = run.write(*table_writer(format, result), progress);
    if (outcome == RunOutcome::done)
        result.commit();
    return outcome;
}

} // namespace halvane
