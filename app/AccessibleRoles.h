// SPDX-License-Identifier: MIT
#pragma once

/// Gives assistive technology the roles of the classes that Qt cannot know: without it the window
/// is told of as a filler, a line or a mere decoration as a picture. Main thread, before the first
/// window.
void installAccessibleRoles();
