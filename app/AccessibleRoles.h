// SPDX-License-Identifier: MIT
#pragma once

/// Gives assistive technology the roles of the classes that Qt cannot know: without it the window
/// is announced as a filler, a line or a mere decoration as a picture. To be called before the
/// first window.
void installAccessibleRoles();
