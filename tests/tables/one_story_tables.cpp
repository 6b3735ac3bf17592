#include "tests/tables/one_story_tables.h"

#include <filesystem>
#include <stdexcept>

OneStoryTables::OneStoryTables() {
    tables_["model"] = {"key,value",
                        "verticalAxis,Z",
                        "lengthUnit,m",
                        "displacementUnit,mm",
                        "forceUnit,kN",
                        "endForceAxes,global",
                        "endForceSense,onMember",
                        "source,one story by hand"};
    tables_["nodes"] = {"node,x,y,z", "1,0,0,0", "2,6,0,0", "3,0,5,0", "4,6,5,0",
                        "5,0,0,4",    "6,6,0,4", "7,0,5,4", "8,6,5,4"};
    tables_["supports"] = {"node", "1", "2", "3", "4"};
    tables_["members"] = {"member,start,end", "1,1,5",  "2,2,6",  "3,3,7", "4,4,8",
                          "11,5,6",           "12,6,8", "13,8,7", "14,7,5"};
    tables_["cases"] = {"case,name,kind", "1,DL,primary", "2,EX,primary", "3,EY,primary"};
    tables_["displacements"] = {"case,node,ux,uy,uz"};
    tables_["forces"] = {"case,member,end,f1,f2,f3"};
    const std::vector<std::string> moved{"0,0,-0.5", "8,0,0", "0,12,0"};
    const std::vector<std::string> atStart{"0,0,100", "-10,0,0", "0,-10,0"};
    const std::vector<std::string> atEnd{"0,0,-100", "10,0,0", "0,10,0"};
    for (std::size_t i = 0; i < moved.size(); ++i) {
        const std::string loadCase = std::to_string(i + 1) + ",";
        for (int node = 1; node <= 4; ++node)
            Rows("displacements").push_back(loadCase + std::to_string(node) + ",0,0,0");
        for (int node = 5; node <= 8; ++node)
            Rows("displacements").push_back(loadCase + std::to_string(node) + "," + moved[i]);
        for (int member = 1; member <= 4; ++member) {
            Rows("forces").push_back(loadCase + std::to_string(member) + ",start," + atStart[i]);
            Rows("forces").push_back(loadCase + std::to_string(member) + ",end," + atEnd[i]);
        }
    }
}

void OneStoryTables::State(const std::string& key, const std::string& value) {
    for (std::string& row : tables_["model"])
        if (row.starts_with(key + ",")) {
            row = key + "," + value;
            return;
        }
    tables_["model"].push_back(key + "," + value);
}

TablesImport OneStoryTables::Import(const std::optional<InputRoles>& input) const {
    std::filesystem::remove_all(Folder());
    std::filesystem::create_directory(Folder());
    for (const auto& [table, rows] : tables_) {
        std::string text;
        for (const std::string& row : rows)
            text += row + "\n";
        folder_.Write("tables/" + table + ".csv", text);
    }
    return ImportTables(Folder(), input);
}

TablesImport OneStoryTables::ImportForInput() const {
    return Import(InputRoles{"input.csv", 1, {2, 3}});
}
