#include "app/form1_layout.h"

namespace app::layout {

ui::Path playGlyph() {
    ui::Path path;
    path.polygon({{6, 3}, {21, 12}, {6, 21}});
    return path;
}

ui::Path overviewGlyph() {
    ui::Path path;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            path.roundRect(2.0F + 7.0F * static_cast<float>(column), 2.0F + 7.0F * static_cast<float>(row),
                           5.5F, 5.5F, 1);
        }
    }
    return path;
}

ui::Path saveGlyph() {
    ui::Path path;
    path.roundRectOutline(3, 3, 18, 18, 2, 1.8F);
    path.rect(8, 3, 8, 6);
    path.roundRectOutline(7, 13, 10, 8, 1, 1.8F);
    return path;
}

ui::Path powerGlyph() {
    ui::Path path;
    path.line({12, 3}, {12, 11}, 2.2F);
    path.arc(12, 13, 8, -50, 230, 2.2F);
    return path;
}

// A screen and a second one behind it.
ui::Path screensGlyph() {
    ui::Path path;
    path.roundRectOutline(1, 8, 15, 11, 1.5F, 1.8F);
    path.rect(6, 20, 5, 2);
    path.lines({{6, 5}, {22, 5}, {22, 15}, {19, 15}}, 1.8F);
    return path;
}

}  // namespace app::layout
