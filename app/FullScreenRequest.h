#pragma once

// What a user can ask about full screen. The two system commands differ from the other requests: to restore means
// something for a framed window too.
enum class EnumFullScreenRequest : unsigned char
{
    None,
    Toggle,   // the key F11, a right click
    Leave,    // Escape
    Maximise, // the system command, which means to enter full screen
    Restore,  // the system command
};

// The one request that does what both do one after the other, whatever the state of the window is.
EnumFullScreenRequest Combine(EnumFullScreenRequest eFirst, EnumFullScreenRequest eSecond);

// False if the window is already in the state that the request asks for.
bool HasEffect(EnumFullScreenRequest eRequest, bool bFullScreen);
