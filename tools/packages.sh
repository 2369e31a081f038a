# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034
# The Debian packages that each purpose takes, as lists for install-packages.sh. Qt's own libraries are not named:
# the -dev packages bring them.

build=(
    ccache
    cmake
    g++
    libcups2-dev
    libsqlite3-dev
    ninja-build
    pkg-config
    qt6-base-dev
    qt6-declarative-dev
    qt6-pdf-dev
    qt6-svg-dev
)

# The Debian package depends on the same ones: see packaging/Package.cmake. qtqml-workerscript is loaded by another
# module alone: without it no control loads. Where fonts-liberation2 is the only font, its typewriter face is taken
# for everything.
application=(
    fonts-dejavu-core
    fonts-liberation2
    qml6-module-qt-labs-folderlistmodel
    qml6-module-qtqml
    qml6-module-qtqml-workerscript
    qml6-module-qtquick
    qml6-module-qtquick-controls
    qml6-module-qtquick-layouts
    qml6-module-qtquick-shapes
    qml6-module-qtquick-templates
    qml6-module-qtquick-window
    xdg-utils
)

# For a session that has Wayland and nothing else.
wayland=(
    qt6-wayland
)

# For a machine without a display: see virtual-display.sh.
display=(
    at-spi2-core
    dbus-bin
    dbus-daemon
    matchbox-window-manager
    novnc
    tigervnc-standalone-server
    tigervnc-tools
    websockify
    xauth
)

# For ./package.
packaging=(
    dpkg-dev
    file
    gzip
)

tests=(
    appstream
    at-spi2-core
    dbus
    desktop-file-utils
    gir1.2-atspi-2.0
    libgmock-dev
    libgtest-dev
    libxml2-utils
    poppler-utils
    python3
    python3-gi
    qml6-module-qttest
    qt6-declarative-dev-tools
    shared-mime-info
    xauth
    xvfb
)

benchmarks=(
    libbenchmark-dev
)
