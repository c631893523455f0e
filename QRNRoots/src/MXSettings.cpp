#include "MXSettings"

MXSettings::MXSettings() = default;
MXSettings::~MXSettings() = default;

MXSettings* MXSettings::getInstance()
{
    static MXSettings instance;
    return &instance;
}

MxtString MXSettings::getPathSupport() const
{
    return m_pathSupport;
}

void MXSettings::setPathSupport(const MxtString& path)
{
    m_pathSupport = path;
}
