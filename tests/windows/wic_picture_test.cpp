#include "picture/wic_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "picture/wic_transform.h"
#include "platform/com.h"
#include "platform/error.h"

namespace picture {
namespace {

/// What a decoder under test can do. The defaults are a sound picture that cannot be reduced.
struct Abilities {
    UINT width = 64;
    UINT height = 48;
    UINT firstBadRow = 1000;  ///< rows from here on cannot be decoded
    bool canReduce = false;
    bool reducingFails = false;
    GUID reducedFormat = GUID_WICPixelFormat24bppBGR;
    bool roundsDown = false;  ///< the closest size may lie below the wanted one
};

/// A decoder that gives every pixel its row as all three colours, or 200 when it was reduced. It reduces by
/// 2, 4 and 8 and counts its references, the last of which does not end it.
class FakeFrame : public IWICBitmapFrameDecode, public BitmapSourceTransform {
  public:
    explicit FakeFrame(const Abilities& abilities) : abilities_(abilities) {}
    virtual ~FakeFrame() = default;
    FakeFrame(const FakeFrame&) = delete;
    FakeFrame& operator=(const FakeFrame&) = delete;

    long references = 0;
    int reducedCopies = 0;
    int bands = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (IsEqualGUID(id, kBitmapSourceTransformId) && abilities_.canReduce) {
            *object = static_cast<BitmapSourceTransform*>(this);
        } else if (IsEqualGUID(id, IID_IWICBitmapSource) || IsEqualGUID(id, IID_IUnknown)) {
            *object = static_cast<IWICBitmapFrameDecode*>(this);
        } else {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }

    HRESULT STDMETHODCALLTYPE GetSize(UINT* width, UINT* height) override {
        *width = abilities_.width;
        *height = abilities_.height;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPixelFormat(WICPixelFormatGUID* format) override {
        *format = GUID_WICPixelFormat24bppBGR;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE CopyPixels(const WICRect* part, UINT stride, UINT, BYTE* buffer) override {
        ++bands;
        if (static_cast<UINT>(part->Y + part->Height) > abilities_.firstBadRow) {
            return WINCODEC_ERR_BADIMAGE;
        }
        for (int row = 0; row < part->Height; ++row) {
            std::fill_n(buffer + static_cast<UINT>(row) * stride, part->Width * 3,
                        static_cast<BYTE>(part->Y + row));
        }
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE CopyPixels(const WICRect*, UINT width, UINT height, WICPixelFormatGUID*,
                                         WICBitmapTransformOptions, UINT stride, UINT size,
                                         BYTE* buffer) override {
        ++reducedCopies;
        if (abilities_.reducingFails || stride < width * 3 || size < stride * height) {
            return E_FAIL;
        }
        std::fill_n(buffer, size, BYTE{200});
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetClosestSize(UINT* width, UINT* height) override {
        const UINT wanted = *width;
        for (UINT factor = 8; factor >= 1; factor /= 2) {
            *width = abilities_.width / factor;
            *height = abilities_.height / factor;
            if (*width >= wanted || (abilities_.roundsDown && *width * 2 > wanted)) {
                break;
            }
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetClosestPixelFormat(WICPixelFormatGUID* format) override {
        *format = abilities_.reducedFormat;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DoesSupportTransform(WICBitmapTransformOptions, BOOL* supported) override {
        *supported = FALSE;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetResolution(double*, double*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CopyPalette(IWICPalette*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMetadataQueryReader(IWICMetadataQueryReader**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetColorContexts(UINT, IWICColorContext**, UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetThumbnail(IWICBitmapSource**) override { return E_NOTIMPL; }

  private:
    Abilities abilities_;
};

class WicPictures : public testing::Test {
  protected:
    platform::ComApartment apartment_;
};

platform::ComPtr<IWICBitmapFrameDecode> asFrame(FakeFrame& fake) {
    return platform::ComPtr<IWICBitmapFrameDecode>(static_cast<IWICBitmapFrameDecode*>(&fake));
}

/// The first sample of every row.
std::vector<int> rowsOf(WicPicture& picture, int band) {
    const auto stride = static_cast<std::size_t>(picture.width()) * 3;
    std::vector<int> samples;
    for (int y = 0; y < picture.height(); y += band) {
        const int rows = std::min(band, picture.height() - y);
        std::vector<std::uint8_t> bytes(stride * static_cast<std::size_t>(rows), 77);
        picture.read(0, y, picture.width(), rows, bytes.data(), stride);
        for (int row = 0; row < rows; ++row) {
            samples.push_back(bytes[static_cast<std::size_t>(row) * stride]);
        }
    }
    return samples;
}

struct Case {
    const char* name;
    Abilities abilities;
    int minWidth, minHeight;
    int width, height;  ///< what comes of it
};

class Reducing : public WicPictures, public testing::WithParamInterface<Case> {};

TEST_P(Reducing, GivesTheSmallestSizeThatIsLargeEnough) {
    const Case& c = GetParam();
    FakeFrame fake(c.abilities);
    {
        WicPicture picture(asFrame(fake));
        picture.reduce(c.minWidth, c.minHeight);
        EXPECT_EQ(picture.width(), c.width);
        EXPECT_EQ(picture.height(), c.height);
        const bool reduced = c.width < static_cast<int>(c.abilities.width);
        EXPECT_EQ(rowsOf(picture, 5).at(3), reduced ? 200 : 3);
        EXPECT_EQ(fake.bands == 0, reduced);
    }
    EXPECT_EQ(fake.references, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Decoders, Reducing,
    testing::Values(Case{"cannot", {}, 10, 10, 64, 48}, Case{"by_four", {.canReduce = true}, 10, 10, 16, 12},
                    Case{"exactly_by_two", {.canReduce = true}, 32, 24, 32, 24},
                    Case{"just_not_by_two", {.canReduce = true}, 33, 24, 64, 48},
                    Case{"height_decides", {.canReduce = true}, 8, 20, 32, 24},
                    Case{"not_for_enlarging", {.canReduce = true}, 100, 100, 64, 48},
                    Case{"rounding_down", {.canReduce = true, .roundsDown = true}, 10, 10, 16, 12},
                    Case{"failing", {.canReduce = true, .reducingFails = true}, 10, 10, 64, 48},
                    Case{"other_format",
                         {.canReduce = true, .reducedFormat = GUID_WICPixelFormat8bppIndexed},
                         10,
                         10,
                         64,
                         48}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(WicPictures, RowsAfterDamageAreBlack) {
    for (const UINT firstBad : {1U, 7U, 10U, 47U}) {
        FakeFrame fake({.firstBadRow = firstBad});
        WicPicture picture(asFrame(fake));
        const std::vector<int> rows = rowsOf(picture, 10);
        for (UINT y = 0; y < 48; ++y) {
            EXPECT_EQ(rows[y], y < firstBad ? static_cast<int>(y) : 0) << "damaged from row " << firstBad;
        }
    }
}

TEST_F(WicPictures, PictureWithoutAnyRowIsAnError) {
    FakeFrame fake({.firstBadRow = 0});
    WicPicture picture(asFrame(fake));
    EXPECT_THROW(rowsOf(picture, 10), platform::Error);
}

TEST_F(WicPictures, PictureWithoutASizeIsAnError) {
    FakeFrame fake({.width = 0});
    EXPECT_THROW(WicPicture(asFrame(fake)), platform::Error);
    EXPECT_EQ(fake.references, 0);
}

}  // namespace
}  // namespace picture
