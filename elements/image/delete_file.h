#pragma once

namespace pondera {

class Workbench;

/// Lets the person delete files of the open Website that are no pages, one after the other, and shows which of them are
/// still used. Does nothing without a Website.
void Cancella_File(Workbench& workbench);

}  // namespace pondera
