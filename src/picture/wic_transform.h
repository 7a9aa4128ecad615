#pragma once

#include <windows.h>

#include <wincodec.h>

namespace picture {

/// The interface by which a decoder gives a picture at a reduced size, as the Windows Imaging Component
/// documents it (IWICBitmapSourceTransform). The cross compiler's headers lack it.
struct BitmapSourceTransform : public IUnknown {
    /// Writes the part `source` (null: all), reduced to `width` x `height`, a size that GetClosestSize gave.
    virtual HRESULT STDMETHODCALLTYPE CopyPixels(const WICRect* source, UINT width, UINT height,
                                                 WICPixelFormatGUID* format,
                                                 WICBitmapTransformOptions options, UINT stride,
                                                 UINT bufferSize, BYTE* buffer) = 0;
    /// Changes a wanted size to the closest one that the decoder can give.
    virtual HRESULT STDMETHODCALLTYPE GetClosestSize(UINT* width, UINT* height) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClosestPixelFormat(WICPixelFormatGUID* format) = 0;
    virtual HRESULT STDMETHODCALLTYPE DoesSupportTransform(WICBitmapTransformOptions options,
                                                           BOOL* supported) = 0;

  protected:
    ~BitmapSourceTransform() = default;
};

inline constexpr GUID kBitmapSourceTransformId = {
    0x3B16811B, 0x6A43, 0x4EC9, {0xB7, 0x13, 0x3D, 0x5A, 0x0C, 0x13, 0xB9, 0x40}};

}  // namespace picture
