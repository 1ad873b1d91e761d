// SPDX-License-Identifier: MIT
#pragma once

class QApplication;

/// Texts are 13 pixels high, in line edits 14.
void installFonts();

/// Takes Japanese if that is the system's language and English otherwise: installs the catalogue
/// and, where the toolkit has one for its own texts, that too, and makes the language the default
/// locale. Without a catalogue the source texts stand.
void installLanguage(QApplication& application);

/// The program: starts up, refuses to start beside another copy that is starting, and runs until
/// the window is closed. @return the exit code: the event loop's, -1 when the start was refused, or
/// what answerArguments() says. Without a display it does not return but ends the program with 1.
int runSettingTool(int argc, char** argv);
