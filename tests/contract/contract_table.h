// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace brindle {

/// A window and what stands in its title bar.
struct WindowRow {
  std::string name;
  std::string caption;
};

inline void PrintTo(const WindowRow& row, std::ostream* out) { *out << row.name; }

inline const std::vector<WindowRow>& WindowRows() {
  static const std::vector<WindowRow> rows{
      {"Splash", "Brindle"},
      {"MainProg", "Velbrin's Brindle 2.91 DX"},
      {"DefaultW", "Load Default Settings"},
      {"BitrateCalc", "Velbrin's Brindle 2 : Video Bitrate Calc"},
      {"Advanced", "Advanced"},
      {"AudioCalc", "Velbrin's Brindle 2 : Audio Bitrate Calc"},
      {"HDCalc", "Velbrin's Brindle 2 : HD Space Calc"},
      {"AVISplit", "Velbrin's Brindle 2 : AVI Splitting Calc"},
      {"QuickC", "Velbrin's Brindle 2 : Quick Convert"},
      {"AspectRa", "Velbrin's Brindle 2 : Resolution / Aspect Ratio Calc"},
      {"WavNorm", "WAV Normalizer (rev3)"},
      {"AboutWin", "About Calculator"},
      {"WebUpdate", "Velbrin's Brindle 2 : Web Update Panel"},
  };
  return rows;
}

enum class Kind {
  Picture,
  Label,
  Button,
  PictureButton,
  SpinButton,
  CheckBox,
  Option,
  Field,
  List,    ///< with a field to type in
  Choice,  ///< a list without one
  Slider,
  Progress,
  Link,  ///< a label that is clicked
  Line,  ///< a line around a picture
  Frame
};

/// The place of a control that Tab does not reach.
inline constexpr int NoTab = -1;

/// One control of a window, as a person and the tools of a person find it.
struct ControlRow {
  std::string window;
  std::string name;
  Kind kind = Kind::Label;
  std::string frame;    ///< the caption of the frame around it, empty where there is none
  std::string caption;  ///< what stands on it; of labels, fields and lists with built-in settings
  std::string tooltip;
  std::string accessibleName;
  int tab = NoTab;  ///< its place in the tab order, from 0, with every control enabled; the options
                    ///< of an array share one
  bool isHidden = false;  ///< until it is needed
};

inline void PrintTo(const ControlRow& row, std::ostream* out) {
  *out << row.window << '.' << row.name;
}

inline const std::vector<ControlRow>& ControlRows() {
  using K = Kind;
  static const std::string options = "Options";
  static const std::string saveTo = "Save normalized WAV output to:";
  static const std::string file = "File Info";
  static const std::string tolerance =
      "Tolerance for determining whether the WAV is already normalized.";
  static const std::string remaining = "Remaining time to complete task (min:secs)";
  static const std::string basic = "Basic Settings";
  static const std::string extra = "Extra Settings";
  static const std::string time = "Hr:Min:Secs :";
  static const std::string divX = "DivX version :";
  static const std::string interleave = "AVI Interleaving Settings";
  static const std::string settings = "Settings";
  static const std::string general = "General Settings";
  static const std::string codec = "DVD/Codec Settings";
  static const std::string ranges = "Select and DELETE indicated frame ranges:";
  static const std::string frames = "Time / Frames";
  static const std::string bytes = "Bytes / KB's / MB's / GB's";
  static const std::string film = "Movie Aspect Ratio";
  static const std::string output = "Output Video Settings";
  static const std::string same = "Choose the same setting you are using when creating your AVIs";
  static const std::string fromFile = "Fill this window with the figures of a film (Ctrl+O)";
  static const std::string dropHere = "or drop a film here";
  static const std::string website = "https://example.org/brindle";
  static const std::string author = "Velbrin 2026";
  static const std::string toolkit = "Qt \u00A9 The Qt Company Ltd., GNU LGPL 3";
  // clang-format off
  static const std::vector<ControlRow> rows{
      {"Splash", "Image1", K::Picture, "", "", "", "Brindle"},
      {"Splash", "Label1", K::Label, "", "Version 2.91 DX", "", "Version 2.91 DX"},
      {"Splash", "Label2", K::Label, "", website, "", website},
      {"Splash", "Label3", K::Label, "", author, "", author},
      {"Splash", "Toolkit", K::Label, "", toolkit, "", toolkit},

      {"MainProg", "VideoBC", K::PictureButton, "Calculators", "", "",
       "Velbrin's Brindle 2 : Video Bitrate Calc", 0},
      {"MainProg", "AudioBC", K::PictureButton, "Calculators", "", "",
       "Velbrin's Brindle 2 : Audio Bitrate Calc", 1},
      {"MainProg", "HDC", K::PictureButton, "Calculators", "", "",
       "Velbrin's Brindle 2 : HD Space Calc", 2},
      {"MainProg", "AVISplitC", K::PictureButton, "Calculators", "", "",
       "Velbrin's Brindle 2 : AVI Splitting Calc", 3},
      {"MainProg", "RAR", K::PictureButton, "Calculators", "", "",
       "Velbrin's Brindle 2 : Resolution / Aspect Ratio Calc", 4},
      {"MainProg", "QuickCon", K::Button, "Calculators", "Quick Converter", "",
       "Quick Converter", 5},
      {"MainProg", "WinCalc", K::Button, "Calculators", "Windows Calculator", "",
       "Windows Calculator", 6},
      {"MainProg", "Normalize", K::PictureButton, "Tools", "",
       "Easily normalize any 16bit PCM WAV file", "WAV Normalizer (rev3)", 7},
      {"MainProg", "Adremove", K::PictureButton, "Tools", "", "Disable DivX 5 pro GAIN spyware",
       "Disable DivX 5 pro GAIN spyware", 8},
      {"MainProg", "HelpWin", K::Button, "Extra", "Help", "", "Help", 9},
      {"MainProg", "Update", K::Button, "Extra", "Check for Updates",
       "If you are connected to the internet you can check for updates", "Check for Updates", 10},
      {"MainProg", "SaveOnExit", K::CheckBox, "Extra", "Save On Exit",
       "Save settings upon exiting the program", "Save On Exit", 11},
      {"MainProg", "Defaults", K::Button, "Extra", "Load Defaults", "Load the default settings",
       "Load Defaults", 12},
      {"MainProg", "SaveSettings", K::Button, "Extra", "Save Settings", "Save current settings",
       "Save Settings", 13},
      {"MainProg", "About", K::Button, "Extra", "About...",
       "Some basic info on the program and the author", "About...", 14},
      {"MainProg", "Webs", K::Button, "Extra", "Velbrin's Website", "Visit velbrin's website.",
       "Velbrin's Website", 15},

      {"DefaultW", "Command1", K::Button, "", "Load Defaults", "", "Load Defaults", 0},
      {"DefaultW", "Command2", K::Button, "", "Cancel", "", "Cancel", 1},

      {"AboutWin", "Image1", K::Picture, "", "", "", "Brindle"},
      {"AboutWin", "Shape1", K::Line, "", "", "", ""},
      {"AboutWin", "Label9", K::Label, "",
       "Velbrin's Brindle 2 is a collection of calculators for the various steps of most "
       "DVD-to-AVI/xVCD methods.",
       "",
       "Velbrin's Brindle 2 is a collection of calculators for the various steps of most "
       "DVD-to-AVI/xVCD methods."},
      {"AboutWin", "Label8", K::Label, "", "Version 2.91 DX  for Windows 9x/Me/2000/XP", "",
       "Version 2.91 DX  for Windows 9x/Me/2000/XP"},
      {"AboutWin", "Label3", K::Label, "", "E-Mail :", "", "E-Mail :"},
      {"AboutWin", "email", K::Link, "", "velbrin@example.org", "", "E-Mail :", 0},
      {"AboutWin", "website", K::Link, "", website, "", website, 1},
      {"AboutWin", "Author", K::Label, "", author, "", author},
      {"AboutWin", "Toolkit", K::Label, "", toolkit, "", toolkit},

      {"WebUpdate", "Label3", K::Label, "",
       "Connect to Velbrin's Website and check for program updates.", "",
       "Connect to Velbrin's Website and check for program updates."},
      {"WebUpdate", "Label2", K::Label, "", "Update Panel :", "", "Update Panel :"},
      {"WebUpdate", "WebBrowser", K::Link, "", website + "/update", "", "Update Panel :", 0},
      {"WebUpdate", "Label1", K::Label, "", "Internet connection required", "",
       "Internet connection required"},

      {"BitrateCalc", "Audio", K::List, basic, "128",
       "Audio bitrate in kbps (assumes constant bitrate)", "Audio Bitrate (kbps) :", 0},
      {"BitrateCalc", "CDs", K::List, basic, "1", "Number of CD's to fit the movie on",
       "No.Of CD's :", 1},
      {"BitrateCalc", "MLength", K::Field, basic, "100", "Movie length in minutes",
       "Movie Length (Min) :", 2},
      {"BitrateCalc", "MLengthP", K::SpinButton, basic, "+", "", "Movie Length (Min) : plus"},
      {"BitrateCalc", "MLengthM", K::SpinButton, basic, "\u2212", "",
       "Movie Length (Min) : minus"},
      {"BitrateCalc", "Time1", K::Field, basic, "1", "Movie running time (Hours)",
       time + " Movie running time (Hours)", 3},
      {"BitrateCalc", "Time2", K::Field, basic, "40", "Movie running time (Minutes)",
       time + " Movie running time (Minutes)", 4},
      {"BitrateCalc", "Time3", K::Field, basic, "00.00", "Movie running time (Seconds)",
       time + " Movie running time (Seconds)", 5},
      {"BitrateCalc", "Capacity", K::List, extra, "700",
       "Size of the storage medium, or AVI target size in Megabytes", "CD Capacity (MB) :", 6},
      {"BitrateCalc", "Extra", K::Field, extra, "0",
       "Reserve diskspace in Megabytes for extra material (Trailers, menus...)",
       "Extra material (MB) :", 7},
      {"BitrateCalc", "ExtraP", K::SpinButton, extra, "+", "", "Extra material (MB) : plus"},
      {"BitrateCalc", "ExtraM", K::SpinButton, extra, "\u2212", "",
       "Extra material (MB) : minus"},
      {"BitrateCalc", "DivX(0)", K::Option, extra, "3",
       "DivX 3.xx codec (results are accurate for low-motion codec)",
       divX + " DivX 3.xx codec (results are accurate for low-motion codec)", 8},
      {"BitrateCalc", "DivX(1)", K::Option, extra, "4/5",
       "DivX 4.xx / 5.xx codec (results are accurate for 2-pass mode)",
       divX + " DivX 4.xx / 5.xx codec (results are accurate for 2-pass mode)", 8},
      {"BitrateCalc", "Interl", K::Label, extra, "ON",
       "Indicates whether Interleaving is being calculated (Advanced)", "Interleaving:"},
      {"BitrateCalc", "Advance", K::Button, extra, "Advanced", "Advanced interleaving settings",
       "Advanced", 9},
      {"BitrateCalc", "Result", K::Field, "", "841",
       "Video bitrate setting for DivX 3 (low-motion) or DivX 4/5 (2-pass)",
       "Estimated Video Bitrate :", 10},
      {"BitrateCalc", "Qual", K::Label, "", "Average",
       "Estimated quality is a very coarse estimation for a 640x... resolution",
       "Estimated Quality :"},
      {"BitrateCalc", "Stat(0)", K::Label, "", "601.6MB", "Total size of the video.", "Video:"},
      {"BitrateCalc", "Stat(1)", K::Label, "", "91.6MB", "Total size of the audio.", "Audio:"},
      {"BitrateCalc", "Stat(2)", K::Label, "", "6.9MB", "Total size of the AVI overhead.",
       "Overhead:"},
      {"BitrateCalc", "FromFile", K::Button, "", "From File...", fromFile, "From File...", 11},
      {"BitrateCalc", "FilmLine", K::Label, "", dropHere, "", dropHere},

      {"Advanced", "Frame2", K::Frame, "", "AVI Interleaving Settings", "",
       "AVI Interleaving Settings"},
      {"Advanced", "VOver", K::CheckBox, interleave, "Calc. video frame overhead",
       "Enable this if you are encoding to AVI format", "Calc. video frame overhead", 0},
      {"Advanced", "AOver", K::CheckBox, interleave, "Calc. A/V interleaving overhead",
       "Enable this if you are encoding to AVI format with audio",
       "Calc. A/V interleaving overhead", 1},
      {"Advanced", "Label10", K::Label, interleave, "Interleave audio every:", "",
       "Interleave audio every:"},
      {"Advanced", "Label1", K::Label, interleave, "(frames)", "", "(frames)"},
      {"Advanced", "InterlOpt(4)", K::Option, interleave, "NTSC 29.97 fps", same,
       "NTSC 29.97 fps", 4},
      {"Advanced", "Iframe3", K::Field, interleave, "1", same, "NTSC 29.97 fps", 2},
      {"Advanced", "InterlOpt(1)", K::Option, interleave, "Time (ms)", same, "Time (ms)", 4},
      {"Advanced", "Itime", K::Field, interleave, "400", same, "Time (ms)", 3},
      {"Advanced", "InterlOpt(2)", K::Option, interleave, "PAL 25 fps", same, "PAL 25 fps", 4},
      {"Advanced", "Iframe1", K::Field, interleave, "1", same, "PAL 25 fps", 5},
      {"Advanced", "InterlOpt(3)", K::Option, interleave, "NTSC 23.976 fps", same,
       "NTSC 23.976 fps", 4},
      {"Advanced", "Iframe2", K::Field, interleave, "1", same, "NTSC 23.976 fps", 6},
      {"Advanced", "Command1", K::Button, "", "OK", "", "OK", 7},
      {"Advanced", "FromFile", K::Button, "", "From File...", fromFile, "From File...", 8},
      {"Advanced", "FilmLine", K::Label, "", dropHere, "", dropHere},

      {"AudioCalc", "Frame1", K::Frame, "", "Settings", "", "Settings"},
      {"AudioCalc", "Label1", K::Label, settings, "Movie Length (min) :", "",
       "Movie Length (min) :"},
      {"AudioCalc", "MLength", K::Field, settings, "100", "The movie length in minutes",
       "Movie Length (min) :", 0},
      {"AudioCalc", "MLengthP", K::SpinButton, settings, "+", "", "Movie Length (min) : plus"},
      {"AudioCalc", "MLengthM", K::SpinButton, settings, "\u2212", "",
       "Movie Length (min) : minus"},
      {"AudioCalc", "Label3", K::Label, settings, "Video Only AVI Size (MB) :", "",
       "Video Only AVI Size (MB) :"},
      {"AudioCalc", "Source", K::Field, settings, "550",
       "The size of the video-only file in megabytes", "Video Only AVI Size (MB) :", 1},
      {"AudioCalc", "SourceP", K::SpinButton, settings, "+", "",
       "Video Only AVI Size (MB) : plus"},
      {"AudioCalc", "SourceM", K::SpinButton, settings, "\u2212", "",
       "Video Only AVI Size (MB) : minus"},
      {"AudioCalc", "Label2", K::Label, settings, "Target AVI Size (MB) :", "",
       "Target AVI Size (MB) :"},
      {"AudioCalc", "Target", K::Field, settings, "700",
       "The target size for the final AVI in Megabytes", "Target AVI Size (MB) :", 2},
      {"AudioCalc", "TargetP", K::SpinButton, settings, "+", "", "Target AVI Size (MB) : plus"},
      {"AudioCalc", "TargetM", K::SpinButton, settings, "\u2212", "",
       "Target AVI Size (MB) : minus"},
      {"AudioCalc", "Label8", K::Label, settings, "Interleaving:",
       "Indicates whether Interleaving is being calculated (Advanced)", "Interleaving:"},
      {"AudioCalc", "Interl", K::Label, settings, "ON",
       "Indicates whether Interleaving is being calculated (Advanced)", "Interleaving:"},
      {"AudioCalc", "Command1", K::Button, settings, "Advanced", "Advanced interleaving settings",
       "Advanced", 3},
      {"AudioCalc", "Label4", K::Label, "", "Resulting Bitrate :", "", "Resulting Bitrate :"},
      {"AudioCalc", "Result", K::Field, "", "205",
       "The maximum bitrate that can be used for the audio", "Resulting Bitrate :", 4},
      {"AudioCalc", "Label6", K::Label, "", "kbps", "", "kbps"},
      {"AudioCalc", "Label7", K::Label, "", "Suggested Bitrate :", "", "Suggested Bitrate :"},
      {"AudioCalc", "Qual", K::Label, "", "192kbps (Excellent)",
       "Bitrate rounded to the nearest MP3 standard", "Suggested Bitrate :"},
      {"AudioCalc", "FromFile", K::Button, "", "From File...", fromFile, "From File...", 5},
      {"AudioCalc", "FilmLine", K::Label, "", dropHere, "", dropHere},

      {"HDCalc", "VideoF", K::Frame, "", "Video", "", "Video"},
      {"HDCalc", "Video(0)", K::Option, "Video", "Bitrate (kbps)", "Video bitrate in kbps",
       "Bitrate (kbps)", 0},
      {"HDCalc", "Video1", K::Field, "Video", "910", "Video bitrate in kbps", "Bitrate (kbps)", 1},
      {"HDCalc", "Video1P", K::SpinButton, "Video", "+", "Video bitrate in kbps", "Bitrate (kbps) plus"},
      {"HDCalc", "Video1M", K::SpinButton, "Video", "\u2212", "Video bitrate in kbps", "Bitrate (kbps) minus"},
      {"HDCalc", "Video(1)", K::Option, "Video", "Size (MB)", "Video-only file size in Megabytes",
       "Size (MB)", 0},
      {"HDCalc", "Video2", K::Field, "Video", "550", "Video-only file size in Megabytes",
       "Size (MB)", 2},
      {"HDCalc", "Video2P", K::SpinButton, "Video", "+", "Video-only file size in Megabytes", "Size (MB) plus"},
      {"HDCalc", "Video2M", K::SpinButton, "Video", "\u2212", "Video-only file size in Megabytes", "Size (MB) minus"},
      {"HDCalc", "Label13", K::Label, "Video", "DivX version :", "", "DivX version :"},
      {"HDCalc", "DivX(0)", K::Option, "Video", "3",
       "DivX 3.xx codec (results are accurate for low-motion codec)",
       divX + " DivX 3.xx codec (results are accurate for low-motion codec)", 3},
      {"HDCalc", "DivX(1)", K::Option, "Video", "4/5",
       "DivX 4.xx / 5.xx codec (results are accurate for 2-pass mode)",
       divX + " DivX 4.xx / 5.xx codec (results are accurate for 2-pass mode)", 3},
      {"HDCalc", "AudioF", K::Frame, "", "Audio", "", "Audio"},
      {"HDCalc", "Audio(0)", K::Option, "Audio", "WAV 44.1kHz", "44.1 kHz uncompressed wave file",
       "WAV 44.1kHz", 4},
      {"HDCalc", "Audio(1)", K::Option, "Audio", "WAV 48kHz", "48 kHz uncompressed wave file",
       "WAV 48kHz", 4},
      {"HDCalc", "Audio(2)", K::Option, "Audio", "Other (kbps):",
       "Compressed constant bitrate sound (AC3, mp3...)", "Other (kbps):", 4},
      {"HDCalc", "MP2", K::List, "Audio", "224", "AC3/Mp3 audio bitrate in kbps", "Other (kbps):",
       5},
      {"HDCalc", "MLengthF", K::Frame, "", "Movie Length", "", "Movie Length"},
      {"HDCalc", "MLength", K::Field, "Movie Length", "100", "Movie length in minutes",
       "Movie Length minutes", 6},
      {"HDCalc", "MLengthP", K::SpinButton, "Movie Length", "+", "Movie length in minutes", "Movie Length minutes plus"},
      {"HDCalc", "MLengthM", K::SpinButton, "Movie Length", "\u2212", "Movie length in minutes",
       "Movie Length minutes minus"},
      {"HDCalc", "Label1", K::Label, "Movie Length", "minutes", "", "minutes"},
      {"HDCalc", "Label2", K::Label, "", "Hard Disk Space Required (MB) :", "",
       "Hard Disk Space Required (MB) :"},
      {"HDCalc", "Result", K::Label, "", "1660",
       "Megabytes of HD space needed for the Audio & Video files",
       "Hard Disk Space Required (MB) :", 7},
      {"HDCalc", "FromFile", K::Button, "", "From File...", fromFile, "From File...", 8},
      {"HDCalc", "FilmLine", K::Label, "", dropHere, "", dropHere},

      {"AVISplit", "AVIsize", K::Field, general, "1300",
       "The size of the big AVI file that needs to be split", "AVI Size (MB):", 0},
      {"AVISplit", "Frames", K::Field, general, "150000", "Total number of frames",
       "Total Frames:", 1},
      {"AVISplit", "Segs(0)", K::Option, general, "2", "Cut the AVI to two segments",
       "No. of Segments: Cut the AVI to two segments", 2},
      {"AVISplit", "Segs(1)", K::Option, general, "3", "Cut the AVI to three segments",
       "No. of Segments: Cut the AVI to three segments", 2},
      {"AVISplit", "Size1", K::Field, general, "700", "Size of the first segment in Megabytes",
       "Size (MB): Size of the first segment in Megabytes", 3},
      {"AVISplit", "Size2", K::Field, general, "600", "Size of the second segment in Megabytes",
       "Size (MB): Size of the second segment in Megabytes", 4},
      {"AVISplit", "SegNo3Lab", K::Label, general, "3", "", "3"},
      {"AVISplit", "Size3", K::Field, general, "0", "Size of the third segment in Megabytes",
       "Size (MB): Size of the third segment in Megabytes", 5},
      {"AVISplit", "System(0)", K::Option, codec, "PAL", "European PAL - 25 fps",
       "System: European PAL - 25 fps", 6},
      {"AVISplit", "System(1)", K::Option, codec, "NTSC 23.976", "American NTSC DVD 23.976 fps",
       "System: American NTSC DVD 23.976 fps", 6},
      {"AVISplit", "System(2)", K::Option, codec, "NTSC 29.97", "American NTSC TV-DVD 29.97 fps",
       "System: American NTSC TV-DVD 29.97 fps", 6},
      {"AVISplit", "KeyFs", K::Field, codec, "10", "DivX 3 codec setting", "Keyframe every:", 7},
      {"AVISplit", "KeyFr", K::Label, "", "600", "", "Keyframes:"},
      {"AVISplit", "Time1", K::Label, "", "1", "", "Duration: hours"},
      {"AVISplit", "Time2", K::Label, "", "40", "", "Duration: minutes"},
      {"AVISplit", "Time3", K::Label, "", "00.00", "", "Duration: seconds"},
      {"AVISplit", "SetF(0)", K::Field, ranges, "80750", "", "Segment 1 Selection Start", 8},
      {"AVISplit", "SetF(1)", K::Field, ranges, "150000", "", "Segment 1 Selection End", 9},
      {"AVISplit", "SetF(2)", K::Field, ranges, "0", "", "Segment 2 Selection Start", 10},
      {"AVISplit", "SetF(3)", K::Field, ranges, "80749", "", "Segment 2 Selection End", 11},
      {"AVISplit", "SetF(4)", K::Field, ranges, "149750", "", "Segment 2 second Selection Start",
       12},
      {"AVISplit", "SetF(5)", K::Field, ranges, "150000", "", "Segment 2 second Selection End",
       13},
      {"AVISplit", "SegNo3Lab2", K::Label, ranges, "3", "", "3"},
      {"AVISplit", "SetF(6)", K::Field, ranges, "0", "", "Segment 3 Selection Start", 14},
      {"AVISplit", "SetF(7)", K::Field, ranges, "149749", "", "Segment 3 Selection End", 15},
      {"AVISplit", "PartSizes", K::Label, "", "", "", "Segment sizes"},
      {"AVISplit", "WriteParts", K::Button, "", "Write Parts...",
       "Write the segments of the film into a folder", "Write Parts...", 16},
      {"AVISplit", "FromFile", K::Button, "", "From File...", fromFile, "From File...", 17},
      {"AVISplit", "FilmLine", K::Label, "", dropHere, "", dropHere},

      {"QuickC", "Time1", K::Field, frames, "1", "Hours", "Hr:Min:Sec Hours", 0},
      {"QuickC", "Time2", K::Field, frames, "40", "Minutes", "Hr:Min:Sec Minutes", 1},
      {"QuickC", "Time3", K::Field, frames, "00.00", "Seconds", "Hr:Min:Sec Seconds", 2},
      {"QuickC", "Min", K::Field, frames, "100", "Minutes", "min", 3},
      {"QuickC", "Frames", K::Field, frames, "150000", "Number of video frames", "Frames", 4},
      {"QuickC", "System(0)", K::Option, frames, "PAL", "European PAL - 25 fps", "PAL", 5},
      {"QuickC", "System(1)", K::Option, frames, "NTSC 23.976", "American NTSC DVD 23.976 fps",
       "NTSC 23.976", 5},
      {"QuickC", "System(2)", K::Option, frames, "NTSC 29.97", "American NTSC TV-DVD 29.97 fps",
       "NTSC 29.97", 5},
      {"QuickC", "B", K::Field, bytes, "1073741824", "Bytes", "B", 6},
      {"QuickC", "KB", K::Field, bytes, "1048576", "Kilobytes", "KB", 7},
      {"QuickC", "MB", K::Field, bytes, "1024", "Megabytes", "MB", 8},
      {"QuickC", "GB", K::Field, bytes, "1", "Gigabytes", "GB", 9},
      {"QuickC", "FromFile", K::Button, "", "From File...", fromFile, "From File...", 10},
      {"QuickC", "FilmLine", K::Label, "", dropHere, "", dropHere},

      {"AspectRa", "AspectR(0)", K::Option, film, "Free",
       "No AR set. Unlocks the resolution sliders.", "Free", 0},
      {"AspectRa", "AspectR(1)", K::Option, film, "Standard:", "Choose a standard film AR.",
       "Standard:", 0},
      {"AspectRa", "AR1", K::Choice, film, "16:9 (1.778:1)", "Choose a standard film AR.",
       "Standard:", 1},
      {"AspectRa", "AspectR(2)", K::Option, film, "Custom:", "Set a custom aspect ratio.",
       "Custom:", 0},
      {"AspectRa", "AR2", K::Field, film, "1.778", "Set a custom aspect ratio.", "Custom:", 2},
      {"AspectRa", "MODUL", K::Choice, output, "16", "", "Resolution Increment:", 3},
      {"AspectRa", "HRES", K::Slider, output, "",
       "Slide to select the vertical horizontal resolution.",
       "Horizontal Resolution: Slide to select the vertical horizontal resolution.", 4},
      {"AspectRa", "HRESL", K::Label, output, "592", "", "Horizontal Resolution:", 5},
      {"AspectRa", "VRES", K::Slider, output, "",
       "Slide to select the vertical vertical resolution.",
       "Vertical Resolution: Slide to select the vertical vertical resolution.", 6},
      {"AspectRa", "VRESL", K::Label, output, "336", "", "Vertical Resolution:", 7},
      {"AspectRa", "Stats(0)", K::Label, output, "198912",
       "Total number of pixels in output video frame.", "Pixel Count:"},
      {"AspectRa", "Stats(1)", K::Label, output, "777",
       "Total number of macroblocks in output video frame. Applies to MPEG 4.", "Macroblocks:"},
      {"AspectRa", "Stats(4)", K::Label, output, "1.762",
       "Aspect ratio of the displayed resolution.", "Aspect ratio:"},
      {"AspectRa", "Stats(5)", K::Label, output, "-0.9%",
       "An AR error of up to about 2% is considered negligible.", "Aspect error:"},
      {"AspectRa", "FromFile", K::Button, "", "From File...", fromFile, "From File...", 8},
      {"AspectRa", "FilmLine", K::Label, "", dropHere, "", dropHere},

      {"WavNorm", "Mbuffer", K::CheckBox, options,
       "Multi-buffering (faster for source/target on the same HDD)",
       "Disable multi-buffering when source and target are on two separate hard disks.",
       "Multi-buffering (faster for source/target on the same HDD)", 0},
      {"WavNorm", "AutoNorm", K::CheckBox, options, "Auto Normalize After Scan",
       "Begin normalization immediately after scanning (no prompt)", "Auto Normalize After Scan", 1},
      {"WavNorm", "RemFolders", K::CheckBox, options, "Remember Folders",
       "Remember last folder/file loaded", "Remember Folders", 2},
      {"WavNorm", "Label4", K::Label, options, "Normalization tolerance:", tolerance,
       "Normalization tolerance:"},
      {"WavNorm", "Toler", K::Slider, options, "", tolerance, "Normalization tolerance:", 3},
      {"WavNorm", "TolerTxt", K::Label, options, "6%", tolerance, "Normalization tolerance:"},
      {"WavNorm", "Output(0)", K::Option, saveTo,
       "Overwrite existing file (not sug. for 2HDD sys)", "Directly normalize existing WAV file",
       "Overwrite existing file (not sug. for 2HDD sys)", 4},
      {"WavNorm", "Output(1)", K::Option, saveTo, "Target File:",
       "If you have 2 hard disks set the target to a different HD than the source to maximize "
       "performance.",
       "Target File:", 4},
      {"WavNorm", "TargetFile", K::Label, saveTo, "C:\\Out.wav", "C:\\Out.wav", "Target File:"},
      {"WavNorm", "Target", K::Button, saveTo, "Browse...",
       "Select target file for normalized output", "Browse...", 5},
      {"WavNorm", "WavInfo1", K::Label, file, "No File Loaded", "", "File Info"},
      {"WavNorm", "WavInfo2", K::Label, file, "Samplerate", "", "File Info", NoTab, true},
      {"WavNorm", "WavInfo3", K::Label, file, "Sample", "", "File Info", NoTab, true},
      {"WavNorm", "WavInfo4", K::Label, file, "Mode", "", "File Info", NoTab, true},
      {"WavNorm", "WavInfo5", K::Label, file, "Duration", "", "File Info", NoTab, true},
      {"WavNorm", "Sound", K::Picture, file, "",
       "Strong: the sound as it is. Faint: as normalizing would make it. Dashed: the level to reach. "
       "Red: what would be cut off.",
       "Picture of the sound"},
      {"WavNorm", "Label3", K::Label, "", "Normalize to:", "", "Normalize to:"},
      {"WavNorm", "PercNorm", K::Field, "", "100",
       "Normalize to a percentage of the 16bit sample range", "Normalize to:", 6},
      {"WavNorm", "Label1", K::Label, "", "Peaks:", "Detected peaks", "Peaks:", NoTab, true},
      {"WavNorm", "MinV", K::Label, "", "", "Minimum level (peak)", "Peaks: Minimum level (peak)",
       NoTab, true},
      {"WavNorm", "MaxV", K::Label, "", "", "Maximum level (peak)", "Peaks: Maximum level (peak)",
       NoTab, true},
      {"WavNorm", "btnOpen", K::Button, "", "Open WAV",
       "Select a 16bit PCM WAV file to normalize", "Open WAV", 7},
      {"WavNorm", "btnScan", K::Button, "", "Scan for Peaks", "Scan file for peaks",
       "Scan for Peaks", 8, true},
      {"WavNorm", "btnNorm", K::Button, "", "Normalize", "Normalize selected file", "Normalize", 9,
       true},
      {"WavNorm", "Undo", K::Button, "", "Undo",
       "Take back what normalizing has made of this file", "Undo", 10, true},
      {"WavNorm", "Cancel", K::Button, "", "Abort", "Abort task", "Abort", 11, true},
      {"WavNorm", "Status", K::Label, "", "", "", "Status"},
      {"WavNorm", "ProgBar", K::Progress, "", "", "", "Progress", NoTab, true},
      {"WavNorm", "Perc", K::Label, "", "0", "", "Progress", NoTab, true},
      {"WavNorm", "ETA1", K::Label, "", "ETA:", remaining, "ETA:", NoTab, true},
      {"WavNorm", "ETA2", K::Label, "", "", remaining, "ETA:", NoTab, true},
  };
  // clang-format on
  return rows;
}

/// The name of a test on this control.
inline std::string IdentifierOf(const std::string& window, const std::string& control) {
  auto name = window + control;
  std::replace(name.begin(), name.end(), '(', 'N');
  std::erase(name, ')');
  return name;
}
inline std::string IdentifierOf(const ControlRow& row) {
  return IdentifierOf(row.window, row.name);
}

/// The rows of one window, in the order of the table.
inline std::vector<ControlRow> RowsOf(const std::string& window) {
  std::vector<ControlRow> rows;
  for (const auto& row : ControlRows()) {
    if (row.window == window) {
      rows.push_back(row);
    }
  }
  return rows;
}

}  // namespace brindle
