// Ahead of every unit of the logic: a header of Qt, libusb, udev, GMP or X11, or a call into one of them, doesn't
// compile.
#pragma GCC poison usb_init usb_open libusb_init udev_new mpz_init __gmpz_init XOpenDisplay QT_VERSION_STR
