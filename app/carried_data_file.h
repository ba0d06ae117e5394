// A data file that was carried elsewhere together with its books, such as on a stick.
#pragma once

struct MainForm;

// After the list was read: the data file is not where it was when this list was last used, so its
// books are looked for at the same places beside it. Whether some were found.
bool FollowCarriedDataFile(MainForm&);

// Keeps where the data file is while the list of this profile is used.
void KeepPlaceOfDataFile(MainForm&);
