#include "cli/render/Report.h"

#include "cli/FileRun.h"
#include "cli/OrderedWork.h"
#include "cli/Output.h"
#include "cli/Program.h"
#include "cli/Reporter.h"
#include "cli/Shell.h"
#include "cli/render/PdfFile.h"
#include "cli/render/PictureFile.h"
#include "cli/render/Render.h"
#include "cli/render/ReportDrawing.h"
#include "figures/Analysers.h"
#include "platform/Path.h"

#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace vireo {

namespace {

constexpr const char* kHasPage = "has_page";

/// What is known of a file, as a text that any thread can hand on.
std::string RowText(const FileSummary& summary, bool hasPage)
{
    Json row;
    row["kind"] = summary.kind;
    row["scanner"] = summary.scanner;
    row["date"] = summary.date;
    row["figures"] = summary.figures;
    row["verdict"] = summary.verdict;
    row["counts"] = summary.counts;
    row["failure"] = summary.failure;
    row[kHasPage] = hasPage;
    return ToLine(row);
}

ReportRow RowOf(const std::string& name, const FileResult& result)
{
    if (result.object.empty()) {
        ReportRow row{name, {}, false};
        row.summary.failure = result.failure;
        return row;
    }
    const Json row = Json::parse(result.object);
    return {name,
        {row["kind"], row["scanner"], row["date"], row["figures"], row["verdict"], row["counts"],
            row["failure"]},
        row[kHasPage]};
}

FileResult SumUp(const Subject& subject, const Settings& settings)
{
    FileSummary summary = Summarise(subject, settings.limitsFile, AskedFigures(settings));
    const bool hasPage = summary.failure.empty() && CanDraw(subject.Kind());
    std::string failure = summary.failure;
    return {RowText(summary, hasPage), std::move(failure)};
}

/// Sums up all files, as many at a time as the settings say, and tells failures.
std::vector<ReportRow> SumUpAll(const Settings& settings, Reporter& reporter)
{
    std::vector<ReportRow> rows;
    FileSource source(settings.files, settings.folders, settings.output);
    const auto count = source.Count();
    WorkInOrder(
        source, std::min(settings.jobs, count.value_or(settings.jobs)),
        [&](const std::string& file) { return WorkOnFile(file, settings, SumUp); },
        [&](const std::string& file, const FileResult& result) {
            rows.push_back(RowOf(file, result));
            reporter.Report(file, {{}, result.failure});
        });
    return rows;
}

/// Writes the pages one after the other into a PDF file.
class ReportWriter : public DrawingTarget {
public:
    ReportWriter(const ReportTable& table, const Settings& settings)
        : m_table(table),
          m_settings(settings)
    {
        m_settings.target = this;
    }

    FileStatus Write(Reporter& reporter)
    {
        PdfFile file;
        if (const FileStatus status = file.Create(m_settings.output); status != FileStatus::Ok)
            return status;
        {
            QPdfWriter writer(&file);
            SetUpPdf(writer, m_settings, "Test results");
            if (!m_painter.begin(&writer))
                return FileStatus::Failed;
            m_writer = &writer;
            DrawPages(reporter);
            if (!m_painter.end())
                return FileStatus::Failed;
        }
        return file.Commit();
    }

    FileStatus Take(const Drawing& drawing) override
    {
        m_painter.save();
        drawing.drawPage(m_painter, QRectF(0.0, 0.0, m_writer->width(), m_writer->height()));
        m_painter.restore();
        return FileStatus::Ok;
    }

private:
    void DrawPages(Reporter& reporter)
    {
        const ReportLayout layout = LayOutReport(m_table, PagePoints());
        m_pages.table = layout.TablePages();
        m_pages.plots = static_cast<std::size_t>(
            std::ranges::count_if(m_table.rows, [](const ReportRow& row) { return row.hasPage; }));
        for (std::size_t page = 0; page < m_pages.table; ++page) {
            BeginPage();
            InPoints([&] { DrawReportTable(m_painter, m_table, layout, page); });
            DrawFoot("Test results");
        }
        reporter.CountAnew("pages", m_pages.plots);
        for (const ReportRow& row : m_table.rows) {
            if (!row.hasPage)
                continue;
            BeginPage();
            DrawFile(row, reporter);
            DrawFoot(row.name);
        }
    }

    void DrawFile(const ReportRow& row, Reporter& reporter)
    {
        const FileResult result = WorkOnFile(row.name, m_settings, DrawSubject);
        if (!result.failure.empty())
            InPoints([&] { DrawReportFailure(m_painter, PagePoints(), row.name, result.failure); });
        reporter.Report(row.name, {{}, result.failure});
    }

    void BeginPage()
    {
        if (m_number++ > 0)
            m_writer->newPage();
    }

    void DrawFoot(const std::string& text)
    {
        InPoints([&] { DrawReportFoot(m_painter, PagePoints(), text, m_number, m_pages); });
    }

    static constexpr double kPointsPerInch = 72.0;

    QSizeF PagePoints() const
    {
        return QSizeF(m_writer->width(), m_writer->height()) * kPointsPerInch
            / m_writer->resolution();
    }

    template <typename Draw>
    void InPoints(const Draw& draw)
    {
        m_painter.save();
        const double scale = m_writer->resolution() / kPointsPerInch;
        m_painter.scale(scale, scale);
        draw();
        m_painter.restore();
    }

    const ReportTable& m_table;
    Settings m_settings;
    QPdfWriter* m_writer = nullptr;
    QPainter m_painter;
    ReportPages m_pages;
    std::size_t m_number = 0; ///< Of the page being drawn, counted from 1.
};

/// The first of the files that the report would replace.
std::optional<std::string> ReplacedFile(const ReportTable& table, const Settings& settings)
{
    for (const ReportRow& row : table.rows)
        if (IsSameFile(PathFromUtf8(row.name), settings.output))
            return row.name;
    return std::nullopt;
}

} // namespace

int Report(const Settings& settings)
{
    Reporter reporter(FileSource(settings.files, settings.folders).Count());
    ReportTable table;
    table.limits = Utf8FromPath(settings.limits.filename());
    table.rows = SumUpAll(settings, reporter);
    table.folder = CommonFolder(table.rows);
    if (const auto replaced = ReplacedFile(table, settings)) {
        reporter.Report(*replaced, {{}, "The output would replace the file itself"});
        return reporter.Finish();
    }
    const DrawingSession session;
    const FileStatus status = ReportWriter(table, settings).Write(reporter);
    const int exitStatus = reporter.Finish();
    if (status == FileStatus::Ok)
        return exitStatus;
    PrintError(kCommandLineProgram, DescribeOutput(settings.output, status));
    return kExitFileFailed;
}

} // namespace vireo
