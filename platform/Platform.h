// SPDX-License-Identifier: MIT
#pragma once

namespace giggle {

class AddressOpener;
class Fonts;
class InterfaceStyle;
class Resources;
class StoreReview;
class WindowActivation;

/// What the application asks of the system, handed to the screens as one value. It owns nothing: whoever puts
/// it together keeps the objects alive longer than every screen.
struct Platform {
    InterfaceStyle& interfaceStyle;
    Fonts& fonts;
    Resources& resources;
    WindowActivation& windowActivation;
    StoreReview& storeReview;
    AddressOpener& addressOpener;
};

} // namespace giggle
