#include "tables/member_tables.h"

#include <cmath>

#include "host/member_axes.h"
#include "host/units.h"
#include "tables/table_reader.h"
#include "tables/vectors.h"

namespace {

constexpr const char* kHeading = "member,start,end[,beta][,type]";
constexpr const char* kBar = "bar";

// The columns of members.csv.
struct Columns {
    explicit Columns(TableReader& table) {
        const auto required = table.Require({"member", "start", "end"}, kHeading);
        member = required[0];
        start = required[1];
        end = required[2];
        beta = table.Find("beta");
        type = table.Find("type");
    }

    std::size_t member, start, end;
    TableReader::Column beta, type;
};

// A run cannot form the axes of such a member, and ends there.
bool HasLength(const TableMember& member, const TableNodes& nodes,
               const ModelStatement& statement) {
    const double toMillimetres = statement.IsEnglish() ? kMillimetresPerInch : kMillimetresPerMetre;
    const auto inMillimetres = [toMillimetres](const Vec3& p) {
        return Vec3{p.x * toMillimetres, p.y * toMillimetres, p.z * toMillimetres};
    };
    return FormMemberAxes(inMillimetres(nodes.points[*member.startNode]),
                          inMillimetres(nodes.points[*member.endNode]), 0.0, statement.zUp)
        .has_value();
}

double ReadBeta(TableReader& table, const TableReader::Column& column) {
    const auto beta = column ? table.Number(*column) : 0.0;
    if (beta && !std::isfinite(static_cast<float>(*beta)))
        table.Fault(*column, "too large a number for an angle in degrees");
    return beta.value_or(0.0);
}

TableMember ReadBar(TableReader& table, const Columns& columns, const std::string& name,
                    const TableNodes& nodes, const ModelStatement& statement) {
    TableMember member;
    const auto nodeIn = [&](std::size_t column) {
        return table.Place(column, nodes.names, "node", TableName::kNodes, nodes.isRead);
    };
    member.startNode = nodeIn(columns.start);
    member.endNode = nodeIn(columns.end);
    member.beta = ReadBeta(table, columns.beta);
    if (!member.startNode || !member.endNode || !nodes.hasPoint[*member.startNode] ||
        !nodes.hasPoint[*member.endNode])
        return member;
    member.hasLength = HasLength(member, nodes, statement);
    if (!member.hasLength)
        table.Fault(columns.member, "member " + name + " has no length: " +
                                        (member.startNode == member.endNode
                                             ? "both ends are node "
                                             : "its end stands where its start does, at node ") +
                                        nodes.names.Name(*member.startNode) +
                                        "; two nodes at different places are expected");
    return member;
}

// Whether the row is that of a bar; one of another type is noted. Nothing where the type is
// missing.
std::optional<bool> IsBar(TableReader& table, const Columns& columns, const std::string& name,
                          TableMembers& members) {
    if (!columns.type) return true;
    const auto type = table.Text(*columns.type);
    if (!type) return std::nullopt;
    if (*type == kBar) return true;
    members.leftOut[*type].push_back(name);
    return false;
}

}  // namespace

TableMembers ReadMembers(const std::string& folder, const ModelStatement& statement,
                         const TableNodes& nodes, TableFaults& faults) {
    TableMembers members;
    TableReader table(folder, TableName::kMembers, faults);
    const Columns columns(table);
    while (table.NextRow()) {
        const auto name = table.Name(columns.member);
        if (!name) continue;
        if (members.names.Find(*name)) {
            table.Fault(columns.member, "member " + *name + " stands twice; one row is expected");
            continue;
        }
        if (members.names.size() == kMostNames) {
            table.GiveUp(columns.member, "more than " + std::to_string(kMostNames) + " members");
            break;
        }
        const auto isBar = IsBar(table, columns, *name, members);
        TableMember member;
        if (isBar.value_or(false)) member = ReadBar(table, columns, *name, nodes, statement);
        member.isBar = isBar.value_or(true);
        if (member.isBar) {
            member.bar = members.bars.size();
            members.bars.push_back(members.rows.size());
        }
        members.names.Add(*name);
        members.rows.push_back(member);
    }
    members.isRead = table.IsReadToEnd();
    if (members.isRead && members.bars.empty() && !members.rows.empty())
        table.Fault(std::string("no member of the type ") + kBar +
                    "; without columns there is nothing to check");
    return members;
}

namespace {

Vec3 DirectionOf(const TableMember& member, const TableNodes& nodes) {
    return Minus(nodes.points[*member.endNode], nodes.points[*member.startNode]);
}

// Reads axes.csv.
class AxesReader {
public:
    AxesReader(const std::string& folder, const ModelStatement& statement, const TableNodes& nodes,
               const TableMembers& members, TableFaults& faults)
        : statement_(statement),
          nodes_(nodes),
          members_(members),
          table_(folder, TableName::kAxes, faults),
          frames_(members.bars.size()),
          isListed_(members.rows.size(), false) {}

    TableFrames Read() {
        const auto [member] = table_.Require({"member"}, "member,yx,yy,yz");
        const auto y = table_.Require({"yx", "yy", "yz"}, "member,yx,yy,yz");
        while (table_.NextRow())
            ReadRow(member, y);
        const bool isRead = table_.IsReadToEnd();
        TableFrames frames{std::move(frames_), {}};
        for (std::size_t bar = 0; isRead && bar < members_.bars.size(); ++bar)
            if (!isListed_[members_.bars[bar]]) frames.withoutRow.push_back(bar);
        return frames;
    }

private:
    void ReadRow(std::size_t memberColumn, const std::array<std::size_t, 3>& y) {
        const auto place = table_.Place(memberColumn, members_.names, "member", TableName::kMembers,
                                        members_.isRead);
        const auto vx = table_.Number(y[0]), vy = table_.Number(y[1]), vz = table_.Number(y[2]);
        if (!place) return;
        if (isListed_[*place])
            return table_.Fault(memberColumn, "member " + members_.names.Name(*place) +
                                                  " stands twice; one row is expected");
        isListed_[*place] = true;
        const TableMember& member = members_.rows[*place];
        if (!vx || !vy || !vz || !member.isBar || !member.hasLength) return;
        const auto frame =
            FrameOf(DirectionOf(member, nodes_), statement_.sourceAxes.InModel({*vx, *vy, *vz}));
        if (frame)
            frames_[member.bar] = *frame;
        else
            table_.Fault(y[0], "member " + members_.names.Name(*place) +
                                   ": this vector is zero or lies along the member; one in its "
                                   "local x-y plane and across it is expected");
    }

    const ModelStatement& statement_;
    const TableNodes& nodes_;
    const TableMembers& members_;
    TableReader table_;
    std::vector<LocalFrame> frames_;
    std::vector<bool> isListed_;
};

}  // namespace

TableFrames ReadLocalFrames(const std::string& folder, const ModelStatement& statement,
                            const TableNodes& nodes, const TableMembers& members,
                            TableFaults& faults) {
    if (statement.endForceAxes == EndForceAxes::kLocalTable)
        return AxesReader(folder, statement, nodes, members, faults).Read();
    TableFrames frames;
    if (statement.endForceAxes != EndForceAxes::kLocalStandard) return frames;
    frames.ofBars.resize(members.bars.size());
    for (std::size_t bar = 0; bar < members.bars.size(); ++bar)
        if (members.Bar(bar).hasLength)
            frames.ofBars[bar] = StandardFrame(DirectionOf(members.Bar(bar), nodes),
                                               members.Bar(bar).beta, statement.zUp);
    return frames;
}
