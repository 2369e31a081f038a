// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// The keys of the preference file, the type each is stored as, and what holds where a key is absent.
namespace giggle::PreferenceKeys {

/// Text: the font family in which jokes are listed and viewed.
inline constexpr QStringView ListFontName = u"ListFontName";

/// Real: the point size of listed jokes. An integer is stored by the first visit of the display settings.
inline constexpr QStringView ListFontSize = u"ListFontSize";

/// Text: "black", "blue", "red", "green", "magenta" or "white"; any other text means no colour of its own.
inline constexpr QStringView ListFontColor = u"ListFontColor";

/// Real: the point size of the text in the joke viewer.
inline constexpr QStringView ViewerFontSize = u"ViewerFontSize";

/// Boolean: the first launch has put the starter collection in place.
inline constexpr QStringView HasBeenLaunchedBeforeFlag = u"hasBeenLaunchedBeforeFlag";

/// Date: when a review was last asked for.
inline constexpr QStringView ReviewServiceLastRequest = u"ReviewService.lastRequest";

/// Integer: files may hold it. It has no effect, and is kept.
inline constexpr QStringView BgColor = u"bgColor";

} // namespace giggle::PreferenceKeys

/// The values of absent keys. The launch flag is then false; the review date and `bgColor` have no value.
namespace giggle::PreferenceDefaults {

inline constexpr QStringView ListFontName = u"Arial";
inline constexpr double ListFontSize = 15.0;
inline constexpr QStringView ListFontColor = u"black";
inline constexpr double ViewerFontSize = 15.0;

/// What the display settings show, and store, where `ListFontSize` is absent. It differs from the readers'
/// default on purpose: lists stay at 15 until the user has been there.
inline constexpr qint64 SettingsScreenFontSize = 17;

} // namespace giggle::PreferenceDefaults
