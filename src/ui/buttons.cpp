#include "ui/buttons.h"

#include <SDL_gfxPrimitives.h>

#include "platform/text.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "ui/frames.h"

namespace {

// The font of every button label, and the ordinary text font put back afterwards.
constexpr int labelFont = 12;
constexpr int textFont = 2;

Sint16 at(int v) { return static_cast<Sint16>(v); }

// The two dots run clockwise round the border, half a lap apart, one pixel per drawn frame.
void advanceDots(TextButton* b) {
  switch (b->dotPhase) {
    case 0:
      ++b->dot1X;
      --b->dot2X;
      if (b->dot1X == b->x + b->width) b->dotPhase = 1;
      break;
    case 1:
      ++b->dot1Y;
      --b->dot2Y;
      if (b->dot1Y == b->y + b->height) b->dotPhase = 2;
      break;
    case 2:
      --b->dot1X;
      ++b->dot2X;
      if (b->dot1X == b->x) b->dotPhase = 3;
      break;
    case 3:
      --b->dot1Y;
      ++b->dot2Y;
      if (b->dot1Y == b->y) b->dotPhase = 0;
      break;
    default:
      b->dotPhase = 0;
      break;
  }
}

}  // namespace

void initTextButton(TextButton* button, int w, int h, int x, int y, const char* label) {
  if (!button) return;
  button->width = w;
  button->height = h;
  button->x = x;
  button->y = y;
  button->hover = button->pressed = button->clicked = button->dotPhase = 0;
  button->dot1X = x;
  button->dot1Y = y;
  button->dot2X = x + w;
  button->dot2Y = y + h;
  copyText(button->label, label ? label : "");
}

void trackHover(int mouseX, int mouseY, TextButton* button) {
  if (!button) return;
  // The border itself is outside.
  button->hover = button->x < mouseX && mouseX < button->x + button->width && button->y < mouseY &&
                  mouseY < button->y + button->height;
}

void pressButton(TextButton* button) {
  if (button) button->pressed = 1;
}

void releaseButton(TextButton* button) {
  if (!button) return;
  button->pressed = 0;
  // A release anywhere decides: over the button it is a click, elsewhere it
  // clears a click nobody has collected yet.
  button->clicked = button->hover;
}

int takeClick(TextButton* button) {
  if (!button) return 0;
  const int clicked = button->clicked;
  button->clicked = 0;
  return clicked;
}

void drawTextButton(SDL_Surface* surface, TextButton* button, FontTable* fonts) {
  if (!surface || !button) return;
  const Sint16 x1 = at(button->x), y1 = at(button->y);
  const Sint16 x2 = at(button->x + button->width), y2 = at(button->y + button->height);
  if (button->hover && button->pressed) {
    drawGlowFrame(surface, x1, y1, x2, y2, 128, 128, 255, 3);
  } else if (button->hover) {
    drawGlowFrame(surface, x1, y1, x2, y2, 32, 32, 128, 3);
    filledCircleRGBA(surface, at(button->dot1X), at(button->dot1Y), 2, 128, 128, 255, 255);
    filledCircleRGBA(surface, at(button->dot2X), at(button->dot2Y), 2, 128, 128, 255, 255);
    advanceDots(button);
  } else {
    drawGlowFrame(surface, x1, y1, x2, y2, 32, 32, 128, 3);
  }
  if (!fonts) return;
  setCurrentFont(fonts->fonts[labelFont]);
  printString(surface, button->x + (button->width - textWidth(button->label)) / 2, button->y + 2, "%s", button->label);
  setCurrentFont(fonts->fonts[textFont]);
}
