#pragma once

class CustomPathSource;
class HTML5Manager;
class PluginManager;

// The settings objects some cleaners read besides the preferences, handed down
// by whoever builds the run. A missing one leaves its part of the run out, and
// the log says so where it always has.
struct CleanerModels {
    const HTML5Manager* html5 = nullptr;
    const PluginManager* plugins = nullptr;
    CustomPathSource* customPaths = nullptr;
};
