#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "route2/code_verdict.h"
#include "route2/tool_verdict.h"
#include "sheet/words.h"

/// Which figure a cell shows, told to programs that read the page.
struct FigurePlace {
    std::string_view key;  ///< of docs/figures-json.md, or a figure of the sheet's own
    std::optional<int> story;
    std::optional<std::size_t> axis;
    std::optional<std::int32_t> member;
};

/// The attributes that tell it: ` data-figure="..." data-story="..."`.
std::string FigureAttributes(const FigurePlace& place);

/// A cell of a table's heading.
struct HeadCell {
    Words words;
    std::string_view unit = {};  ///< HTML; empty: none
    int columns = 1;
    int rows = 1;
    std::string note = {};  ///< HTML behind the words
};

/// For tables of a row per story: few of them stay on one page.
inline std::string_view KeptTogether(std::size_t stories) {
    constexpr std::size_t kMostOnOnePage = 12;
    return stories <= kMostOnOnePage ? " short" : "";
}

/// A table of the sheet. Its columns are as wide as they are told, so that no content makes it
/// wider than the page.
class Table {
public:
    /// `key` is told to programs that read the page. `widths`: of the columns, in parts of their
    /// sum.
    Table(std::string_view key, Words caption, std::vector<double> widths,
          std::string_view cssClass = {});

    void HeadRow(const std::vector<HeadCell>& cells);

    /// `cells`: the row's cells, HTML.
    void Row(std::string_view cells, std::string_view attributes = {});

    /// The same for a row whose cells are added to the HTML that this gives, which is the table's
    /// own; to be closed before anything else is called.
    std::string& OpenRow(std::string_view attributes = {});
    void CloseRow();

    /// Rows that stay on one page, such as those of one story.
    void Together(const std::vector<std::string>& rowsOfCells);

    /// A row that sums up the rows before it; the last of them stays on its page.
    void SumRow(std::string_view cells);

    /// The whole table. To be called once, as the last thing.
    std::string TakeHtml();

private:
    enum class Part { kNone, kHead, kRows };

    // Closes what is open, and opens a part unless it is that.
    void Enter(Part part, std::string_view opening);
    void Leave();

    std::string html_;
    Part part_ = Part::kNone;
    std::size_t lastRow_ = 0;  ///< where the last row of the open part begins
};

// Cells. Texts are HTML, unless they are said to be anything else.

/// What the row is about: a heading for screen readers.
std::string RowHead(std::string_view html, int rows = 1);
void AppendRowHead(std::string& cells, std::string_view html, int rows = 1);

/// The same of a row that is about a story.
std::string StoryHead(const std::string& name, int rows = 1);

std::string Cell(std::string_view html, std::string_view cssClass = {});
std::string NumberCell(std::string_view text, std::string_view cssClass = {});

/// A figure, right-aligned.
std::string FigureCell(const FigurePlace& place, std::string_view text,
                       std::string_view cssClass = {}, std::string_view moreAttributes = {});

// The same, added to the cells of a row: for tables with thousands of them.

void AppendNumberCell(std::string& html, std::string_view text, std::string_view cssClass = {});

/// The figures of one place at a time, whose attributes are written once.
class FigureRow {
public:
    /// The key of `place` is left open.
    void MoveTo(const FigurePlace& place);

    void AppendCell(std::string& html, std::string_view key, std::string_view text,
                    std::string_view cssClass = {}) const;

private:
    std::string place_;
};

/// OK, NG or 算定不可.
std::string_view TextInSheet(CodeVerdict verdict);

/// PASS, FAIL, or a dash where nothing is judged.
std::string TextInSheet(const std::optional<ToolVerdict>& verdict);

/// The code's verdict, the tool's one small behind it, and `notes` (HTML) on why they differ.
std::string VerdictCell(const FigurePlace& place, CodeVerdict code, std::string_view toolKey,
                        const std::optional<ToolVerdict>& tool, std::string_view notes);
