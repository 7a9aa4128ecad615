#include "picture/jpeg_library.h"

// The library's header uses these two without including them.
#include <cstddef>
#include <cstdio>

#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>
#include <csetjmp>
#include <limits>

namespace picture {

namespace {

constexpr int kEighths = 8;
constexpr JOCTET kEndOfImage[] = {0xFF, JPEG_EOI};

/// The library's objects for one file, and what the functions that it calls note beside them. It may jump
/// past those functions, so they own nothing.
struct Callbacks {
    jpeg_decompress_struct info;
    jpeg_error_mgr errors;
    jpeg_source_mgr source;
    std::jmp_buf escape;
    bool sourceEnded;  ///< the file was too short
    /// The first row of blocks for which there is no data.
    JDIMENSION firstMissingUnit;
};

Callbacks& callbacksOf(void* info) {
    return *static_cast<Callbacks*>(static_cast<jpeg_decompress_struct*>(info)->client_data);
}

[[noreturn]] void giveUp(j_common_ptr info) {
    std::longjmp(callbacksOf(info).escape, 1);
}

/// The data of the scan end in the current row of blocks. Only the first scan tells which rows there are: the
/// later ones refine them.
void noteEndOfData(Callbacks& callbacks) {
    const jpeg_decompress_struct& info = callbacks.info;
    if (info.input_scan_number == 1) {
        callbacks.firstMissingUnit = std::min(callbacks.firstMissingUnit, info.input_iMCU_row + 1);
    }
}

void takeMessage(j_common_ptr info, int level) {
    if (level >= 0) {
        return;
    }
    Callbacks& callbacks = callbacksOf(info);
    ++callbacks.errors.num_warnings;
    if (callbacks.errors.msg_code != JWRN_HIT_MARKER) {
        return;
    }
    // With restart intervals decoding goes on at the next one, but never past a marker of another kind.
    const int marker = callbacks.info.unread_marker;
    const bool goesOn = marker < 0xC0 || (marker >= JPEG_RST0 && marker <= JPEG_RST0 + 7);
    if (callbacks.info.restart_interval == 0 || !goesOn) {
        noteEndOfData(callbacks);
    }
}

void dropMessage(j_common_ptr) {}

void nothingToDo(j_decompress_ptr) {}

/// From here on the library reads nothing but an orderly end.
void readEndNext(jpeg_source_mgr& source) {
    source.next_input_byte = kEndOfImage;
    source.bytes_in_buffer = sizeof kEndOfImage;
}

/// The file is at its end: a picture that is not complete ends here, like a complete one.
boolean endSource(j_decompress_ptr info) {
    Callbacks& callbacks = callbacksOf(info);
    readEndNext(callbacks.source);
    callbacks.sourceEnded = true;
    // An arithmetic decoder takes what is missing for zeros and reports nothing.
    if (info->arith_code) {
        noteEndOfData(callbacks);
    }
    return TRUE;
}

void skipSource(j_decompress_ptr info, long count) {
    if (count <= 0) {
        return;
    }
    jpeg_source_mgr& source = callbacksOf(info).source;
    if (static_cast<std::size_t>(count) > source.bytes_in_buffer) {
        endSource(info);
        return;
    }
    source.next_input_byte += count;
    source.bytes_in_buffer -= static_cast<std::size_t>(count);
}

/// Runs one step of the library; false when it gave up. `Step` must own nothing.
template <typename Step>
bool attempt(Callbacks& callbacks, Step step) {
    if (setjmp(callbacks.escape) != 0) {
        return false;
    }
    step(&callbacks.info);
    return true;
}

/// What a second frame header in a file overwrites before the library refuses it.
struct Frame {
    explicit Frame(const jpeg_decompress_struct& info)
        : width(info.image_width),
          height(info.image_height),
          components(info.num_components),
          precision(info.data_precision),
          progressive(info.progressive_mode),
          arithmetic(info.arith_code) {}

    void restore(jpeg_decompress_struct& info) const {
        info.image_width = width;
        info.image_height = height;
        info.num_components = components;
        info.data_precision = precision;
        info.progressive_mode = progressive;
        info.arith_code = arithmetic;
    }

    JDIMENSION width, height;
    int components, precision;
    boolean progressive, arithmetic;
};

std::uint64_t roundedUp(JDIMENSION count, int multiple) {
    const auto size = static_cast<std::uint64_t>(multiple);
    return (count + size - 1) / size * size;
}

}  // namespace

struct JpegLibrary::State : Callbacks {
    State() : Callbacks{} {}
    bool usable = true;  ///< no call has failed
};

JpegLibrary::JpegLibrary(std::span<const std::uint8_t> file) : state_(std::make_unique<State>()) {
    State& state = *state_;
    state.firstMissingUnit = std::numeric_limits<JDIMENSION>::max();
    state.info.err = jpeg_std_error(&state.errors);
    state.errors.error_exit = giveUp;
    state.errors.emit_message = takeMessage;
    state.errors.output_message = dropMessage;
    state.source.next_input_byte = file.data();
    state.source.bytes_in_buffer = file.size();
    state.source.init_source = nothingToDo;
    state.source.fill_input_buffer = endSource;
    state.source.skip_input_data = skipSource;
    state.source.resync_to_restart = jpeg_resync_to_restart;
    state.source.term_source = nothingToDo;
    state.info.client_data = static_cast<Callbacks*>(&state);
    state.usable = attempt(state, [](j_decompress_ptr info) { jpeg_create_decompress(info); });
    state.info.src = &state.source;
}

JpegLibrary::~JpegLibrary() {
    jpeg_destroy_decompress(&state_->info);
}

bool JpegLibrary::readHeader() {
    State& state = *state_;
    state.usable =
        state.usable && attempt(state, [](j_decompress_ptr info) { jpeg_read_header(info, TRUE); });
    if (!state.usable) {
        return false;
    }
    jpeg_decompress_struct& info = state.info;
    const jpeg_source_mgr& source = state.source;
    const bool empty = state.sourceEnded || source.bytes_in_buffer == 0 ||
                       (source.bytes_in_buffer >= sizeof kEndOfImage &&
                        std::equal(std::begin(kEndOfImage), std::end(kEndOfImage), source.next_input_byte));
    switch (info.jpeg_color_space) {
        case JCS_GRAYSCALE:
        case JCS_YCbCr:
        case JCS_RGB:
            info.out_color_space = JCS_EXT_BGR;
            break;
        case JCS_CMYK:
        case JCS_YCCK:
            // Adobe's programs store inks inverted, and leave their mark.
            colours_ = info.saw_Adobe_marker ? Colours::InksInverted : Colours::Inks;
            info.out_color_space = JCS_CMYK;
            break;
        default:
            state.usable = false;
    }
    state.usable = state.usable && !empty;
    setScale(kEighths);
    return state.usable;
}

void JpegLibrary::setScale(int eighths) {
    eighths_ = eighths;
    state_->info.scale_num = static_cast<unsigned>(eighths);
    state_->info.scale_denom = kEighths;
    state_->usable = state_->usable && attempt(*state_, jpeg_calc_output_dimensions);
}

int JpegLibrary::width() const {
    return static_cast<int>(state_->info.output_width);
}

int JpegLibrary::height() const {
    return static_cast<int>(state_->info.output_height);
}

std::uint64_t JpegLibrary::memory() const {
    // Sequentially decoded rows pass through buffers of up to three rows of blocks.
    constexpr std::uint64_t kBandRows = 32;
    jpeg_decompress_struct& info = state_->info;
    std::uint64_t bytes = kBandRows * info.output_width * static_cast<std::uint64_t>(info.num_components);
    if (jpeg_has_multiple_scans(&info)) {
        for (int i = 0; i < info.num_components; ++i) {
            const jpeg_component_info& component = info.comp_info[i];
            bytes += roundedUp(component.width_in_blocks, component.h_samp_factor) *
                     roundedUp(component.height_in_blocks, component.v_samp_factor) * sizeof(JBLOCK);
        }
    }
    return bytes;
}

void JpegLibrary::start() {
    State& state = *state_;
    if (!state.usable) {
        return;
    }
    state.info.buffered_image = jpeg_has_multiple_scans(&state.info);
    state.usable = attempt(state, [](j_decompress_ptr info) { jpeg_start_decompress(info); }) &&
                   (!state.info.buffered_image || readScans());
}

int JpegLibrary::mostScans(std::uint64_t pixels) {
    constexpr std::uint64_t kMostPixelsOfAllScans = 4'000'000'000;
    return static_cast<int>(
        std::clamp<std::uint64_t>(kMostPixelsOfAllScans / std::max<std::uint64_t>(pixels, 1), 32, 500));
}

bool JpegLibrary::readScans() {
    State& state = *state_;
    const Frame frame(state.info);
    const int most =
        mostScans(std::uint64_t{state.info.image_width} * std::uint64_t{state.info.image_height});
    const bool orderly = attempt(state, [most](j_decompress_ptr info) {
        int result = JPEG_SUSPENDED;
        while (result != JPEG_REACHED_EOI &&
               (result != JPEG_SCAN_COMPLETED || info->input_scan_number < most)) {
            result = jpeg_consume_input(info);
        }
    });
    if (!orderly || !jpeg_input_complete(&state.info)) {
        // What comes behind the damage or the limit is not read, so the picture ends there.
        frame.restore(state.info);
        state.info.unread_marker = JPEG_EOI;
        readEndNext(state.source);
    }
    return attempt(state, [](j_decompress_ptr info) {
        while (!jpeg_input_complete(info)) {
            jpeg_consume_input(info);
        }
        jpeg_start_output(info, info->input_scan_number);
    });
}

int JpegLibrary::readRows(std::uint8_t** rows, int count) {
    State& state = *state_;
    if (!state.usable || state.info.output_scanline >= state.info.output_height) {
        return 0;
    }
    const JDIMENSION before = state.info.output_scanline;
    state.usable = attempt(state, [rows, count](j_decompress_ptr info) {
        jpeg_read_scanlines(info, rows, static_cast<JDIMENSION>(count));
    });
    return state.usable ? static_cast<int>(state.info.output_scanline - before) : 0;
}

int JpegLibrary::firstMissingRow() const {
    const auto unitRows =
        static_cast<std::uint64_t>(state_->info.max_v_samp_factor) * static_cast<std::uint64_t>(eighths_);
    const std::uint64_t row = state_->firstMissingUnit * unitRows;
    return static_cast<int>(std::min<std::uint64_t>(row, state_->info.output_height));
}

}  // namespace picture
