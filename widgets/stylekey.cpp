#include "widgets/stylekey.h"

#include "widgets/uiscale.h"

#include <QWidget>

bool StyleKey::operator==(const StyleKey& other) const
{
    return dpi == other.dpi && fontZoom == other.fontZoom && language == other.language;
}

StyleKey styleKeyOf(const QWidget* page)
{
    return {UiScale::screenDpi(page), UiScale::fontFactor(page), page->locale()};
}

bool StyleSteps::sheetsAreDue(const QWidget* page)
{
    const StyleKey key = styleKeyOf(page);
    if (key == m_styled) {
        return false;
    }
    m_styled = key;
    m_sized = false;
    return true;
}

bool StyleSteps::sizesAreDue(const QWidget* page)
{
    if (m_sized || !page->isVisible()) {
        return false;
    }
    m_sized = true;
    return true;
}
