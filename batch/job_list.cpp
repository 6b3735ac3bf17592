#include "batch/job_list.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <set>
#include <string_view>

#include "platform/native_path.h"
#include "platform/regular_file.h"
#include "tables/csv_rows.h"
#include "tables/table_encoding.h"

namespace {

constexpr std::size_t kLongestName = 100;

// Of a folder on Windows: these and their names with an extension are devices.
constexpr std::string_view kDevices[] = {
    "con",  "prn",  "aux",  "nul",  "com1", "com2", "com3", "com4", "com5", "com6", "com7",
    "com8", "com9", "lpt1", "lpt2", "lpt3", "lpt4", "lpt5", "lpt6", "lpt7", "lpt8", "lpt9"};

// Systems differ in whether case tells names apart.
std::string Folded(std::string name) {
    for (char& character : name)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return name;
}

std::optional<std::string> WhyNoFolderName(const std::string& name) {
    if (name.empty()) return "a name is missing";
    if (name.size() > kLongestName) return "the name is longer than 100 bytes";
    const auto isBad = [](char character) {
        return static_cast<unsigned char>(character) < 0x20 ||
               std::string_view(R"(/\:*?"<>|)").find(character) != std::string_view::npos;
    };
    if (std::ranges::any_of(name, isBad))
        return R"(a name cannot hold / \ : * ? " < > |, for it becomes a folder)";
    if (name.ends_with('.') || name.ends_with(' ') || name.starts_with('.'))
        return "a name cannot begin or end with a stop, for it becomes a folder";
    const std::string bare = Folded(name.substr(0, name.find('.')));
    if (std::ranges::find(kDevices, bare) != std::end(kDevices))
        return "Windows takes this name for a device";
    return std::nullopt;
}

// Reads the whole list once.
TableEncoding EncodingOf(const std::string& path, std::FILE* file) {
    EncodingScan scan;
    char block[4096];
    for (std::size_t size = sizeof block; size == sizeof block && !scan.HasFault();) {
        size = std::fread(block, 1, sizeof block, file);
        scan.Take({block, size});
    }
    const EncodingScan::Found found = scan.Finish();
    if (found.fault != EncodingScan::Fault::kNone)
        throw JobListError(path + ": this is no text in UTF-8 or Shift_JIS");
    std::rewind(file);
    return found.encoding;
}

class Reader {
public:
    Reader(const std::string& path, std::FILE* file, TableEncoding encoding)
        : path_(path), rows_(file, encoding) {}

    std::vector<Job> Read() {
        ReadHeading();
        std::vector<Job> jobs;
        while (Next())
            jobs.push_back(ReadJob());
        if (jobs.empty()) throw JobListError(path_ + ": there are no jobs below the heading");
        return jobs;
    }

private:
    [[noreturn]] void Fail(const std::string& text) const {
        throw JobListError(path_ + ":" + std::to_string(rows_.PlaceAt(0).line) + ": " + text);
    }

    bool Next() {
        const bool isThere = rows_.Next();
        if (const auto& fault = rows_.Fault())
            throw JobListError(path_ + ":" + std::to_string(fault->place.line) + ": " +
                               fault->text);
        return isThere;
    }

    std::string TextOf(std::optional<std::size_t> column) const {
        if (!column || *column >= rows_.Fields().size()) return {};
        return Utf8Of(rows_.Fields()[*column].text, rows_.encoding());
    }

    void ReadHeading() {
        if (!Next()) throw JobListError(path_ + ": the file is empty");
        for (std::size_t i = 0; i < rows_.Fields().size(); ++i) {
            const std::string name = TextOf(i);
            for (std::size_t k = 0; k < kColumns.size(); ++k)
                if (name == kColumns.at(k)) columns_.at(k) = i;
        }
        if (!columns_[0] || !columns_[1] || !columns_[2])
            Fail("the heading must be name,model,input or name,model,input,title");
    }

    Job ReadJob() {
        Job job;
        job.line = rows_.PlaceAt(0).line;
        job.name = TextOf(columns_[0]);
        if (const auto why = WhyNoFolderName(job.name)) Fail(*why);
        if (!names_.insert(Folded(job.name)).second) Fail("the name " + job.name + " stands twice");
        job.model = PathOf(TextOf(columns_[1]));
        job.input = PathOf(TextOf(columns_[2]));
        if (job.input.empty()) Fail("the input file is missing");
        job.title = TextOf(columns_[3]);
        return job;
    }

    // As seen from the list's folder.
    std::string PathOf(const std::string& text) const {
        if (text.empty()) return {};
        std::string narrow = NarrowOfUtf8(text);
        if (NativePath(narrow).is_absolute()) return narrow;
        return path_.substr(0, path_.find_last_of(kPathSeparators) + 1) + narrow;
    }

    static constexpr std::array<std::string_view, 4> kColumns{"name", "model", "input", "title"};

    std::string path_;
    CsvRows rows_;
    std::array<std::optional<std::size_t>, 4> columns_;
    std::set<std::string> names_;
};

}  // namespace

std::vector<Job> ReadJobList(const std::string& path) {
    const StdioFile file = OpenRegularFile(path, ReadMode::kBytes);
    if (!file) throw JobListError(path + ": this file cannot be opened");
    return Reader(path, file.get(), EncodingOf(path, file.get())).Read();
}
