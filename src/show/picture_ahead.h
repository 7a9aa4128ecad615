#pragma once

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

#include "show/picture_source.h"

namespace show {

/// Decodes pictures before they are needed, on a thread of its own that knows paths and pixels and nothing
/// else. One picture is decoded at a time: two of 24 megapixels would double the program's memory, and the
/// pause between two pictures is longer than a decode.
class PictureAhead : public PictureSource {
  public:
    PictureAhead();
    ~PictureAhead() override;
    PictureAhead(const PictureAhead&) = delete;
    PictureAhead& operator=(const PictureAhead&) = delete;

    void setSurface(const ShowSurface& surface) override;
    std::optional<ShowPicture> take(const std::wstring& path) override;
    bool ready(const std::wstring& path) override;
    void prepare(const std::vector<std::wstring>& paths) override;
    void giveBack(picture::Surface surface) override;

    /// Whether nothing is left to decode; for tests and benchmarks.
    bool idle();

  private:
    /// What tells one state of a file from another: a picture replaced meanwhile is decoded anew.
    struct FileStamp {
        FILETIME written{};
        std::uint64_t size = 0;
        bool operator==(const FileStamp& other) const;
    };
    struct Job {
        int number = 0;
        std::wstring path;
        /// The file's state when its decoding began.
        FileStamp stamp;
        bool done = false;
        std::optional<ShowPicture> picture;
    };

    using Jobs = std::list<Job>;

    static FileStamp stampOf(const std::wstring& path);
    void work();
    Jobs::iterator find(const std::wstring& path);
    Jobs::iterator find(int number);
    Jobs::iterator nextJob();
    Job newJob(const std::wstring& path);
    void waitFor(std::unique_lock<std::mutex>& lock, const Job& job);
    void keepSpare(picture::Surface surface);
    static picture::Surface blackSurface(std::vector<picture::Surface> spares, int width, int height);
    void decode(std::unique_lock<std::mutex>& lock, int number, const std::wstring& path);

    std::mutex mutex_;
    std::condition_variable changed_;
    Jobs jobs_;
    /// Surfaces of pictures that are not wanted any more. The thread uses one again and ends the others.
    std::vector<picture::Surface> spares_;
    int lastNumber_ = 0;
    ShowSurface surface_;
    /// Counts changes of the surface: what was begun before one is thrown away.
    int surfaceNumber_ = 0;
    bool decoding_ = false;
    /// Calls of take() that wait for their picture.
    int awaited_ = 0;
    std::chrono::steady_clock::time_point restUntil_;
    bool stopping_ = false;
    std::thread worker_;
};

}  // namespace show
