#include "bench_main.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "overview_run.h"
#include "photographs.h"

namespace bench {

namespace {

struct Entry {
    std::string unit;
    int runs = 1;
    Figure::Measure measure;
};

std::map<std::string, Entry>& entries() {
    static std::map<std::string, Entry> all;
    return all;
}

struct Result {
    std::string name;
    double value = 0;
    std::string unit;
};

struct Options {
    std::string only;
    std::string json;
    std::string photographs;
    std::string overview;
    bool list = false;
};

std::wstring& createdFolder() {
    static std::wstring path;
    return path;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double run(const Entry& entry) {
    if (entry.runs > 1) {
        entry.measure();
    }
    std::vector<double> values;
    for (int i = 0; i < entry.runs; ++i) {
        values.push_back(entry.measure());
    }
    return median(std::move(values));
}

std::optional<Options> parse(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view name = arguments[i];
        if (name == "--list") {
            options.list = true;
            continue;
        }
        const std::map<std::string_view, std::string*> texts = {{"--only", &options.only},
                                                                {"--json", &options.json},
                                                                {"--photographs", &options.photographs},
                                                                {"--overview", &options.overview}};
        const auto text = texts.find(name);
        if (++i == count || text == texts.end()) {
            return std::nullopt;
        }
        *text->second = arguments[i];
    }
    return options;
}

/// Names and units are plain letters, so nothing has to be escaped.
bool writeJson(const std::string& path, const std::vector<Result>& results) {
    std::ofstream file(path, std::ios::binary);
    file << "[\n";
    for (std::size_t i = 0; i < results.size(); ++i) {
        file << "  {\"name\": \"" << results[i].name << "\", \"value\": " << results[i].value
             << ", \"unit\": \"" << results[i].unit << "\"}" << (i + 1 < results.size() ? ",\n" : "\n");
    }
    file << "]\n";
    file.close();
    return !file.fail();
}

int writePhotographs(const std::filesystem::path& folder) {
    try {
        writePhotographsForPeers(folder.wstring());
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "the photographs cannot be written: %s\n", error.what());
        return 1;
    }
}

/// Prints how many seconds the overview takes until it shows all of a folder.
int timeOverview(const std::filesystem::path& folder) {
    try {
        std::printf("%.3f\n", openOverview(folder.wstring()).filledMs / 1000);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "the overview cannot be measured: %s\n", error.what());
        return 1;
    }
}

int runAll(const Options& options) {
    std::vector<Result> results;
    bool failed = false;
    bool listed = false;
    for (const auto& [name, entry] : entries()) {
        if (!name.starts_with(options.only)) {
            continue;
        }
        if (options.list) {
            std::printf("%s %s\n", name.c_str(), entry.unit.c_str());
            listed = true;
            continue;
        }
        try {
            results.push_back({name, run(entry), entry.unit});
            std::printf("%s %.4g %s\n", name.c_str(), results.back().value, entry.unit.c_str());
            std::fflush(stdout);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s failed: %s\n", name.c_str(), error.what());
            failed = true;
        }
    }
    if (listed) {
        return 0;
    }
    if (results.empty()) {
        std::fprintf(stderr, "no figure's name begins with \"%s\"\n", options.only.c_str());
        failed = true;
    }
    if (!options.json.empty() && !writeJson(options.json, results)) {
        std::fprintf(stderr, "%s cannot be written\n", options.json.c_str());
        failed = true;
    }
    return failed ? 1 : 0;
}

}  // namespace

Figure::Figure(std::string name, std::string unit, int runs, Measure measure) {
    entries()[std::move(name)] = {std::move(unit), runs, std::move(measure)};
}

double milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

const std::wstring& temporaryFolder() {
    std::wstring& path = createdFolder();
    if (path.empty()) {
        const auto name = L"panorell_bench_" + std::to_wstring(GetCurrentProcessId());
        const std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
        std::filesystem::create_directory(folder);
        path = folder.wstring();
    }
    return path;
}

}  // namespace bench

int main(int count, char** arguments) {
    const auto options = bench::parse(count, arguments);
    if (!options) {
        std::fprintf(stderr,
                     "panorell_bench [--only PREFIX] [--json FILE | --list] | --photographs FOLDER | "
                     "--overview FOLDER\n");
        return 2;
    }
    if (!options->photographs.empty()) {
        return bench::writePhotographs(options->photographs);
    }
    if (!options->overview.empty()) {
        return bench::timeOverview(options->overview);
    }
    const int code = bench::runAll(*options);
    if (!bench::createdFolder().empty()) {
        std::error_code ignored;
        std::filesystem::remove_all(bench::createdFolder(), ignored);
    }
    return code;
}
