"""The X screen of DISPLAY by Xlib itself: the colour of a pixel, and keys pressed as if on a keyboard.

A process for each look or key, as with the usual tools, would take longer than what is measured.
"""

import ctypes

_x11 = ctypes.CDLL("libX11.so.6")
_xtest = ctypes.CDLL("libXtst.so.6")

_DISPLAY = ctypes.c_void_p
_IMAGE = ctypes.c_void_p
_x11.XOpenDisplay.restype = _DISPLAY
_x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
_x11.XDefaultRootWindow.restype = ctypes.c_ulong
_x11.XDefaultRootWindow.argtypes = [_DISPLAY]
_x11.XGetImage.restype = _IMAGE
_x11.XGetImage.argtypes = [_DISPLAY, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint, ctypes.c_uint,
                           ctypes.c_ulong, ctypes.c_int]
_x11.XGetPixel.restype = ctypes.c_ulong
_x11.XGetPixel.argtypes = [_IMAGE, ctypes.c_int, ctypes.c_int]
_x11.XDestroyImage.argtypes = [_IMAGE]
_x11.XStringToKeysym.restype = ctypes.c_ulong
_x11.XStringToKeysym.argtypes = [ctypes.c_char_p]
_x11.XKeysymToKeycode.restype = ctypes.c_ubyte
_x11.XKeysymToKeycode.argtypes = [_DISPLAY, ctypes.c_ulong]
_x11.XFlush.argtypes = [_DISPLAY]
_xtest.XTestFakeKeyEvent.argtypes = [_DISPLAY, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]
_xtest.XTestFakeMotionEvent.argtypes = [_DISPLAY, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_ulong]

_ALL_PLANES = ctypes.c_ulong(-1).value
_Z_PIXMAP = 2


class Screen:
    """The screen of DISPLAY, 24 bits deep. Raises OSError when there is none."""

    def __init__(self):
        self._display = _x11.XOpenDisplay(None)
        if not self._display:
            raise OSError("no X display")
        self._root = _x11.XDefaultRootWindow(self._display)

    def colour(self, x, y):
        """The colour 0xRRGGBB at a place, whoever painted it."""
        image = _x11.XGetImage(self._display, self._root, x, y, 1, 1, _ALL_PLANES, _Z_PIXMAP)
        try:
            return _x11.XGetPixel(image, 0, 0) & 0xFFFFFF
        finally:
            _x11.XDestroyImage(image)

    def press(self, key):
        """Presses and releases a key, called by its keysym's name, in the window that has the focus."""
        code = _x11.XKeysymToKeycode(self._display, _x11.XStringToKeysym(key.encode()))
        if code == 0:
            raise ValueError(f"no key {key}")
        for pressed in (1, 0):
            _xtest.XTestFakeKeyEvent(self._display, code, pressed, 0)
        _x11.XFlush(self._display)

    def move_pointer(self, x, y):
        """Moves the mouse."""
        _xtest.XTestFakeMotionEvent(self._display, -1, x, y, 0)
        _x11.XFlush(self._display)
