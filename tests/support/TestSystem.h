#pragma once

#include <string>

namespace morvane {

// What tests have to know of the system that they run on.

/// The text of the number by which a process is known to have ended that died of the signal, or
/// where there are none of the exception, of a number below ten.
std::string DeathBy(int number);
/// A file that takes no byte, as on a full disk; empty where there is none.
std::string FullDevice();
/// False where nobody can expect the programs that read pages for the tests, pdftoppm and
/// pdftotext.
bool HasPageReaders();

/// The dialog that asks for a printer is the toolkit's. Where it is the system's, the one that asks
/// for a file comes in its place while there is no printer.
bool HasToolkitPrintDialog();
/// The toolkit finds a library here that knows the words of Thai, which no blank parts.
bool HasThaiWords();
/// The toolkit asks the same service as for the good pictures which font has a letter.
bool HasFontconfig();
/// A process that this one has started runs, or was not waited for.
bool HasChildren();

}  // namespace morvane
