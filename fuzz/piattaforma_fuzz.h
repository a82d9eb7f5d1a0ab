// The platform calls the settings reader can reach, without a screen or
// files: boxes are counted and answered OK, tones are silent, files are
// never there.
#pragma once

extern int AvvisiMostrati;
// Set by a box that is not the notice of a value out of range.
extern bool AvvisoInatteso;
