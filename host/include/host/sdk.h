// The host SDK functions and types the module calls. The running host's SDK library provides them;
// here the simulated host does (it is linked in its place).
#pragma once

#include "automation.h"
#include "host/plot_settings.h"

class CWinApp;

#if defined(_WIN32)
#if defined(ZBSDK_BUILDING)
#define ZBSDK_API __declspec(dllexport)
#else
#define ZBSDK_API __declspec(dllimport)
#endif
#else
#define ZBSDK_API __attribute__((visibility("default")))
#endif

// Result codes of the SDK functions.
constexpr int kZbNormal = 5100;       // the call did what was asked
constexpr int kZbError = -5001;       // it failed, or found nothing
constexpr int kZbTextTooLong = -5008; // a text did not fit the caller's buffer

// Kinds of value a result buffer holds.
constexpr short kZbShortValue = 1;
constexpr short kZbRealValue = 2;
constexpr short kZbTextValue = 3;

// One value of a system variable; the SDK fills it and takes it back in the same form.
struct resbuf {
    resbuf* rbnext = nullptr;
    short restype = 0;
    union {
        short rint;
        double rreal;
        wchar_t* rstring;
    } resval{};
};

// Text that the host allocated; whoever receives it gives the buffer back with zbHeapFree.
struct ZbString {
    wchar_t* buffer = nullptr;
};

class ZbDbHostApplicationServices {
public:
    virtual ~ZbDbHostApplicationServices() = default;
    // The key below the current user's registry hive where the host keeps its settings.
    virtual const wchar_t* getUserRegistryProductRootKey() const = 0;
};

// The host's application framework object, or null when there is none.
ZBSDK_API CWinApp* zbedGetZorbWinApp();

ZBSDK_API int zbedGetVar(const wchar_t* name, resbuf* value);
ZBSDK_API int zbedSetVar(const wchar_t* name, const resbuf* value);

// Looks a file up on the host's search path; kZbNormal and the found path when it is there.
ZBSDK_API int zbedFindFile(const wchar_t* fileName, ZbString& found);
ZBSDK_API void zbHeapFree(void* block);

ZBSDK_API ZbDbHostApplicationServices* zbdbHostApplicationServices();

// A 2D point in the variant form the host's automation methods take: an array of two doubles.
class ZbAxPoint2d {
public:
    ZbAxPoint2d(double x, double y) : m_x(x), m_y(y) { VariantInit(&m_variant); }
    ~ZbAxPoint2d() { VariantClear(&m_variant); }
    ZbAxPoint2d(const ZbAxPoint2d&) = delete;
    ZbAxPoint2d& operator=(const ZbAxPoint2d&) = delete;

    double x() const { return m_x; }
    double y() const { return m_y; }

    // The point's own variant, rebuilt on each call; the point clears it when it goes.
    VARIANT* asVariantPtr()
    {
        VariantClear(&m_variant);
        SAFEARRAY* coordinates = SafeArrayCreateVector(VT_R8, 0, 2);
        if (coordinates == nullptr)
            return &m_variant;  // an empty variant: the host refuses it
        LONG index = 0;
        SafeArrayPutElement(coordinates, &index, &m_x);
        index = 1;
        SafeArrayPutElement(coordinates, &index, &m_y);
        V_VT(&m_variant) = VT_ARRAY | VT_R8;
        V_ARRAY(&m_variant) = coordinates;
        return &m_variant;
    }

private:
    double m_x;
    double m_y;
    VARIANT m_variant;
};
