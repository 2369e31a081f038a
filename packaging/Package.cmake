# SPDX-License-Identifier: MIT
# The Debian package: cpack, run in the build folder, makes it there. ./package does all of it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME giggle-archives)
set(CPACK_PACKAGE_VENDOR "The Giggle Archives developers")
set(CPACK_PACKAGE_CONTACT "The Giggle Archives developers <feedback@gigglearchives.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "joke collection for one person")
set(CPACK_PACKAGE_DESCRIPTION
    "Keeps jokes with category, rating and favourite mark, on a phone, tablet or
desktop, by touch, keyboard, mouse or screen reader. Lists sort and search;
jokes can be printed, shared and mailed.
.
Everything stays on the device. One plain text file carries the collection to
another one.")
set(CPACK_PACKAGE_HOMEPAGE_URL https://gigglearchives.example/)

# The second entry adds what only the package holds.
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};${PROJECT_NAME};ALL;/"
                                 "${PROJECT_BINARY_DIR};${PROJECT_NAME};debian;/")
# Without it the prefix would be the folder in which the package is put together.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Libraries are found by themselves. The rest is what tools/packages.sh lists for the application: modules and fonts
# that are loaded at run time. So is libqt6svg6, which draws the icons.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(GIGGLE_RUNTIME_PACKAGES
    "fonts-dejavu-core | fonts-noto-core"
    "fonts-liberation2 | fonts-liberation (>= 1:2)"
    libqt6svg6
    qml6-module-qt-labs-folderlistmodel
    qml6-module-qtqml
    qml6-module-qtqml-workerscript
    qml6-module-qtquick
    qml6-module-qtquick-controls
    qml6-module-qtquick-layouts
    qml6-module-qtquick-shapes
    qml6-module-qtquick-templates
    qml6-module-qtquick-window)
list(JOIN GIGGLE_RUNTIME_PACKAGES ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
# A session on Wayland, handing files and mail to other programs, and being one instance.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "default-dbus-session-bus | dbus-session-bus, qt6-wayland, xdg-desktop-portal, xdg-utils")

include(CPack)
