// A picture of 32 bits in memory, white at first.
#pragma once

#include "platform/windows/line_layout/win_canvas.h"

class MemoryPicture {
  public:
    explicit MemoryPicture(Size size)
        : size_(size), context_(CreateCompatibleDC(nullptr)), canvas_(context_) {
        BITMAPINFO info = {};
        info.bmiHeader = {
            sizeof info.bmiHeader, size.width, -size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        original_ = SelectObject(context_, bitmap_);
        canvas_.FillRect({0, 0, size.width, size.height}, 0xFFFFFF);
    }
    ~MemoryPicture() {
        SelectObject(context_, original_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    MemoryPicture(const MemoryPicture&) = delete;
    MemoryPicture& operator=(const MemoryPicture&) = delete;

    WinCanvas& Canvas() { return canvas_; }
    Color At(int x, int y) const {
        GdiFlush();
        const auto rgb = static_cast<const DWORD*>(bits_)[y * size_.width + x] & 0xFFFFFF;
        return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
    }

  private:
    Size size_;
    HDC context_;
    WinCanvas canvas_;
    void* bits_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ original_ = nullptr;
};
