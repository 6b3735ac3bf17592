#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tables/local_frame.h"
#include "tables/node_tables.h"

/// A row of members.csv.
struct TableMember {
    bool isBar = true;  ///< other kinds of members stay out of the model

    // Of bars only, and where the row has no fault.
    std::size_t bar = 0;                            ///< place among the bars
    std::optional<std::size_t> startNode, endNode;  ///< places in TableNodes
    double beta = 0.0;                              ///< degrees
    bool hasLength = false;
};

/// What members.csv says, in the order of its rows.
struct TableMembers {
    NameNumbers names;
    std::vector<TableMember> rows;
    std::vector<std::size_t> bars;                            ///< places of the bars in `rows`
    std::map<std::string, std::vector<std::string>> leftOut;  ///< names by type
    bool isRead = false;

    const TableMember& Bar(std::size_t bar) const { return rows[bars[bar]]; }
    const std::string& BarName(std::size_t bar) const { return names.Name(bars[bar]); }
};

TableMembers ReadMembers(const std::string& folder, const ModelStatement& statement,
                         const TableNodes& nodes, TableFaults& faults);

/// The frames along which the tables give the end forces of the bars.
struct TableFrames {
    /// By the bars' places among them; empty where the forces are not along such frames.
    std::vector<LocalFrame> ofBars;

    /// Bars without a row in axes.csv, where frames come from there.
    std::vector<std::size_t> withoutRow;
};

/// Reads axes.csv where the statement says so.
TableFrames ReadLocalFrames(const std::string& folder, const ModelStatement& statement,
                            const TableNodes& nodes, const TableMembers& members,
                            TableFaults& faults);
