// SPDX-License-Identifier: GPL-3.0-or-later
// The image library written out for BASIC programs: reads a picture file into a 24-bit bitmap in memory.
//
// It is a 32-bit library for Windows, without a C runtime of its own. File names are in the system's ANSI code page.
#include <windows.h>

#include <gdiplus.h>

namespace {

namespace Gdip = Gdiplus::DllExports;

constexpr Gdiplus::ARGB White = 0xFFFFFFFF;
constexpr Gdiplus::REAL DotsPerInch = 96;
constexpr INT LongestSide = 20000;

struct Size {
    INT width;
    INT height;
};

// A drawing has no pixels of its own; it gets as many as it would cover at 96 dots per inch.
Size SizeOf(Gdiplus::GpImage* image)
{
    UINT width = 0;
    UINT height = 0;
    Gdiplus::ImageType type = Gdiplus::ImageTypeUnknown;
    Gdip::GdipGetImageWidth(image, &width);
    Gdip::GdipGetImageHeight(image, &height);
    Gdip::GdipGetImageType(image, &type);
    Size size = {static_cast<INT>(width), static_cast<INT>(height)};
    Gdiplus::REAL across = 0;
    Gdiplus::REAL down = 0;
    if (type == Gdiplus::ImageTypeMetafile && Gdip::GdipGetImageHorizontalResolution(image, &across) == Gdiplus::Ok &&
        Gdip::GdipGetImageVerticalResolution(image, &down) == Gdiplus::Ok && across > 0 && down > 0) {
        size.width = static_cast<INT>(static_cast<Gdiplus::REAL>(width) * DotsPerInch / across + 0.5F);
        size.height = static_cast<INT>(static_cast<Gdiplus::REAL>(height) * DotsPerInch / down + 0.5F);
        size.width = size.width < 1 ? 1 : size.width;
        size.height = size.height < 1 ? 1 : size.height;
    }
    return size;
}

bool Draw(Gdiplus::GpImage* image, HDC target, Size size)
{
    Gdiplus::GpGraphics* graphics = nullptr;
    if (Gdip::GdipCreateFromHDC(target, &graphics) != Gdiplus::Ok)
        return false;
    Gdip::GdipSetPixelOffsetMode(graphics, Gdiplus::PixelOffsetModeHalf);
    Gdip::GdipGraphicsClear(graphics, White);
    const bool isDrawn = Gdip::GdipDrawImageRectI(graphics, image, 0, 0, size.width, size.height) == Gdiplus::Ok;
    Gdip::GdipDeleteGraphics(graphics);
    GdiFlush();
    return isDrawn;
}

HBITMAP BitmapOf(Gdiplus::GpImage* image, HWND window)
{
    const Size size = SizeOf(image);
    if (size.width < 1 || size.height < 1 || size.width > LongestSide || size.height > LongestSide)
        return nullptr;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;

    // An invalid window handle must not make the call fail.
    HWND owner = IsWindow(window) ? window : nullptr;
    HDC display = GetDC(owner);
    HDC memory = CreateCompatibleDC(display);
    void* pixels = nullptr;
    HBITMAP bitmap = CreateDIBSection(display, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    bool isDrawn = false;
    if (memory != nullptr && bitmap != nullptr) {
        HGDIOBJ before = SelectObject(memory, bitmap);
        isDrawn = Draw(image, memory, size);
        SelectObject(memory, before);
    }
    if (memory != nullptr)
        DeleteDC(memory);
    ReleaseDC(owner, display);
    if (isDrawn)
        return bitmap;
    if (bitmap != nullptr)
        DeleteObject(bitmap);
    return nullptr;
}

HBITMAP BitmapOfFile(const WCHAR* name, HWND window)
{
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok)
        return nullptr;
    Gdiplus::GpImage* image = nullptr;
    HBITMAP bitmap = nullptr;
    if (Gdip::GdipLoadImageFromFile(name, &image) == Gdiplus::Ok) {
        bitmap = BitmapOf(image, window);
        Gdip::GdipDisposeImage(image);
    }
    Gdiplus::GdiplusShutdown(token);
    return bitmap;
}

// The width and height of a bitmap; zero for an invalid handle.
Size SizeOf(HBITMAP handle)
{
    BITMAP bitmap = {};
    if (GetObjectA(handle, sizeof bitmap, &bitmap) == 0 || GetObjectType(handle) != OBJ_BITMAP)
        return {0, 0};
    return {bitmap.bmWidth, bitmap.bmHeight < 0 ? -bitmap.bmHeight : bitmap.bmHeight};
}

} // namespace

extern "C" {

// A 24-bit bitmap in memory with the picture of the file; 0 when it cannot be read. The caller releases it with
// DeleteObject or, once it has been loaded, with unloadbmp.
ULONG WINAPI LoadImageFile(HWND window, const char* fileName)
{
    if (fileName == nullptr)
        return 0;
    const int length = MultiByteToWideChar(CP_ACP, 0, fileName, -1, nullptr, 0);
    auto* name = length < 1
                     ? nullptr
                     : static_cast<WCHAR*>(HeapAlloc(GetProcessHeap(), 0, static_cast<SIZE_T>(length) * sizeof(WCHAR)));
    if (name == nullptr)
        return 0;
    HBITMAP bitmap = nullptr;
    if (MultiByteToWideChar(CP_ACP, 0, fileName, -1, name, length) != 0)
        bitmap = BitmapOfFile(name, window);
    HeapFree(GetProcessHeap(), 0, name);
    return static_cast<ULONG>(reinterpret_cast<ULONG_PTR>(bitmap));
}

ULONG WINAPI ImageWidth(HBITMAP bitmap)
{
    return static_cast<ULONG>(SizeOf(bitmap).width);
}

ULONG WINAPI ImageHeight(HBITMAP bitmap)
{
    return static_cast<ULONG>(SizeOf(bitmap).height);
}

BOOL WINAPI DllEntry(HINSTANCE module, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
        DisableThreadLibraryCalls(module);
    return TRUE;
}
}
