#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

#include <algorithm>
#include <functional>
#include <span>
#include <vector>

#include "picture/area_average.h"
#include "support/exif_bytes.h"

namespace support {

/// How a JPEG is to be written.
struct JpegKind {
    const char* name = "baseline";
    J_COLOR_SPACE stored = JCS_YCbCr;
    int across = 2;  ///< sampling factors of the first component; those of the others are 1
    int down = 2;
    bool progressive = false;
    bool arithmetic = false;
    bool apart = false;     ///< every component in a scan of its own
    unsigned restarts = 0;  ///< rows of blocks between two restart markers; 0 for none
    bool adobe = true;      ///< with Adobe's mark, where the colours ask for one
    int quality = 92;
};

/// Sample `channel` of pixel (x, y): red, green, blue; grey; or cyan, magenta, yellow, black.
using SampleRule = std::function<int(int x, int y, int channel)>;

namespace jpeg_file_detail {

inline J_COLOR_SPACE givenFor(J_COLOR_SPACE stored) {
    switch (stored) {
        case JCS_GRAYSCALE:
            return JCS_GRAYSCALE;
        case JCS_CMYK:
        case JCS_YCCK:
            return JCS_CMYK;
        default:
            return JCS_RGB;
    }
}

inline void setKind(jpeg_compress_struct& info, const JpegKind& kind) {
    jpeg_set_defaults(&info);
    jpeg_set_colorspace(&info, kind.stored);
    jpeg_set_quality(&info, kind.quality, TRUE);
    for (int i = 0; i < info.num_components; ++i) {
        info.comp_info[i].h_samp_factor = i == 0 ? kind.across : 1;
        info.comp_info[i].v_samp_factor = i == 0 ? kind.down : 1;
    }
    info.write_Adobe_marker = info.write_Adobe_marker && kind.adobe;
    info.arith_code = kind.arithmetic;
    info.optimize_coding = !kind.arithmetic;
    info.restart_in_rows = static_cast<int>(kind.restarts);
    if (kind.progressive) {
        jpeg_simple_progression(&info);
    }
}

}  // namespace jpeg_file_detail

/// A JPEG file of that size, written by the library.
inline Bytes writeJpeg(int width, int height, const JpegKind& kind, const SampleRule& rule) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &buffer, &size);
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.in_color_space = jpeg_file_detail::givenFor(kind.stored);
    info.input_components = info.in_color_space == JCS_GRAYSCALE ? 1 : info.in_color_space == JCS_RGB ? 3 : 4;
    jpeg_file_detail::setKind(info, kind);
    std::vector<jpeg_scan_info> scans;
    for (int i = 0; kind.apart && i < info.num_components; ++i) {
        scans.push_back({1, {i, 0, 0, 0}, 0, DCTSIZE2 - 1, 0, 0});
    }
    if (kind.apart) {
        info.scan_info = scans.data();
        info.num_scans = info.num_components;
    }
    jpeg_start_compress(&info, TRUE);
    Bytes row;
    for (int y = 0; y < height; ++y) {
        row.clear();
        for (int x = 0; x < width; ++x) {
            for (int channel = 0; channel < info.input_components; ++channel) {
                row.push_back(static_cast<std::uint8_t>(std::clamp(rule(x, y, channel), 0, 255)));
            }
        }
        std::uint8_t* line = row.data();
        jpeg_write_scanlines(&info, &line, 1);
    }
    jpeg_finish_compress(&info);
    Bytes file(buffer, buffer + size);
    std::free(buffer);  // the library allocates it so
    jpeg_destroy_compress(&info);
    return file;
}

/// What the library makes of an undamaged file in one go: rows without padding, of blue, green and red or, in
/// `colours`, of something else.
inline Bytes plainDecode(const Bytes& file, J_COLOR_SPACE colours = JCS_EXT_BGR) {
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&info, TRUE);
    info.out_color_space = colours;
    jpeg_start_decompress(&info);
    const std::size_t stride =
        std::size_t{info.output_width} * static_cast<std::size_t>(info.output_components);
    Bytes rows(stride * info.output_height);
    while (info.output_scanline < info.output_height) {
        std::uint8_t* line = rows.data() + info.output_scanline * stride;
        jpeg_read_scanlines(&info, &line, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return rows;
}

/// All rows of a source of that size, without padding, read `band` rows at a time.
inline Bytes readRows(picture::RowSource& source, int width, int height, int band = 7) {
    const std::size_t stride = static_cast<std::size_t>(width) * picture::kBytesPerPixel;
    Bytes rows(stride * static_cast<std::size_t>(height), 0x55);
    for (int y = 0; y < height; y += band) {
        source.read(0, y, width, std::min(band, height - y),
                    rows.data() + static_cast<std::size_t>(y) * stride, stride);
    }
    return rows;
}

/// Where the marker stands whose second byte is `marker`, searched from `from` on; the size when there is
/// none.
inline std::size_t findMarker(const Bytes& file, std::uint8_t marker, std::size_t from = 0) {
    for (std::size_t i = from; i + 1 < file.size(); ++i) {
        if (file[i] == 0xFF && file[i + 1] == marker) {
            return i;
        }
    }
    return file.size();
}

/// Slopes, edges and some grain in every channel.
inline int motley(int x, int y, int channel) {
    const unsigned grain = (static_cast<unsigned>(x) * 2654435761U ^ static_cast<unsigned>(y) * 40503U) >> 28;
    return (x * (channel + 1) / 3 + y * 2 + ((x / 23 + y / 17) % 2) * 70) % 230 + static_cast<int>(grain);
}

}  // namespace support
