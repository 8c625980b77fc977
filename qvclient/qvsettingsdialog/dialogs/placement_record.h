// The placement record: where and how large the settings dialog was, kept as ten values in the host's session data, and
// the switch that turns this on. The dialog reads it when its window is created and writes it when the window goes.
#pragma once

#include "qvclient/qvsettingsdialog/model/construction_set.h"

// What a dialog starts from: shown normally at (0, 0, 470, 360).
[[nodiscard]] WINDOWPLACEMENT InitialPlacement() noexcept;

// The setting "configdialoginit" of "common", or its definition's default while no value is stored. False without
// session data.
[[nodiscard]] bool IsPlacementSwitchedOn(const XConstructionSet& constructionSet);

// A placement within the coordinates that a window can have (16 bits): a record may hold any number, and what is worked
// out from it has to stay a number. Nothing on or near a screen is changed.
[[nodiscard]] WINDOWPLACEMENT WithinWindowSpace(WINDOWPLACEMENT placement) noexcept;

// Overwrites the fields that the record names. A record that cannot be listed leaves the placement as it is.
void ReadPlacementRecord(ISessionDataManager& sessionData, WINDOWPLACEMENT& placement);

// Writes the ten values to the user's data and, only when every write succeeded, makes them permanent. flags is what
// the record's "flags" says; the placement's own are never stored.
void WritePlacementRecord(ISessionDataManager& sessionData, const WINDOWPLACEMENT& placement, int flags);
