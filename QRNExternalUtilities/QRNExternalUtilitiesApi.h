// Marks what the module exports: the DLL exports and its users import on Windows; elsewhere the
// library is built with hidden visibility and shows these names only.
#pragma once

#ifdef _WIN32
#ifdef QRNEXTERNALUTILITIES_BUILDING
#define QRNEXTERNALUTILITIES_API __declspec(dllexport)
#else
#define QRNEXTERNALUTILITIES_API __declspec(dllimport)
#endif
#else
#define QRNEXTERNALUTILITIES_API __attribute__((visibility("default")))
#endif
