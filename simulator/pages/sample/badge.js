'use strict';

/*
 * Draws a visitor's badge. Its colours are dark on white: most badge printers
 * know no others.
 */
window.sample = window.sample || {};

(function (sample) {

  const INK = '#084463';
  const TEXT = '#16232e';
  const PALE = '#dcecf5';
  const FONT = '"DejaVu Sans", system-ui, sans-serif';
  const BAND = 96;          // height of the head
  const BORDER = 110;       // height of the pattern
  const SIDE = 36;
  const SIZES = [76, 68, 60, 54, 48, 42, 36, 30];

  function waves(context, width, top) {
    context.lineWidth = 8;
    context.strokeStyle = INK;
    for (let line = 0; line < 4; line += 1) {
      context.beginPath();
      for (let x = -10; x <= width + 10; x += 5) {
        context.lineTo(x, top + 22 + line * 24 + Math.sin(x / 36 + line) * 9);
      }
      context.stroke();
    }
  }

  function dots(context, width, top) {
    context.fillStyle = INK;
    for (let y = 0; y < 4; y += 1) {
      for (let x = 0; x * 32 < width + 32; x += 1) {
        context.beginPath();
        context.arc(x * 32 + (y % 2) * 16, top + 18 + y * 26, 4 + y * 2, 0, Math.PI * 2);
        context.fill();
      }
    }
  }

  function stripes(context, width, top) {
    context.lineWidth = 14;
    context.strokeStyle = INK;
    for (let x = -BORDER; x < width + BORDER; x += 40) {
      context.beginPath();
      context.moveTo(x, top + BORDER + 10);
      context.lineTo(x + BORDER, top - 10);
      context.stroke();
    }
  }

  const PATTERNS = { waves, dots, stripes };

  function shorten(context, text, width) {
    let short = text;
    while (short.length > 1 && context.measureText(short + '…').width > width) {
      short = short.slice(0, -1);
    }
    return short === text ? text : short.trim() + '…';
  }

  // At most two lines, broken between words where that is possible.
  function linesOf(context, text, width) {
    const fits = (line) => context.measureText(line).width <= width;
    if (fits(text)) {
      return [text];
    }
    const words = text.split(/\s+/);
    let count = words.length - 1;
    while (count > 1 && !fits(words.slice(0, count).join(' '))) {
      count -= 1;
    }
    return [words.slice(0, count).join(' '), words.slice(count).join(' ')].filter((line) => line !== '');
  }

  // The largest letters in which the name has room.
  function drawName(context, name, width, top, height) {
    let lines = [];
    const size = SIZES.find((candidate) => {
      context.font = `bold ${candidate}px ${FONT}`;
      lines = linesOf(context, name, width);
      return lines.every((line) => context.measureText(line).width <= width)
        && lines.length * candidate * 1.2 <= height;
    }) || SIZES[SIZES.length - 1];
    const first = top + (height - lines.length * size * 1.2) / 2;
    lines.forEach((line, index) => {
      context.fillText(shorten(context, line, width), SIDE, first + (index + 0.95) * size * 1.2 - size * 0.15);
    });
  }

  // pattern is the name of one of PATTERNS.
  function drawBadge(canvas, { title, name, date, pattern }) {
    const context = canvas.getContext('2d');
    const { width, height } = canvas;
    const bottom = height - BORDER;
    context.fillStyle = '#ffffff';
    context.fillRect(0, 0, width, height);

    context.save();
    context.beginPath();
    context.rect(0, bottom, width, BORDER);
    context.clip();
    context.fillStyle = PALE;
    context.fillRect(0, bottom, width, BORDER);
    PATTERNS[pattern](context, width, bottom);
    context.restore();

    context.fillStyle = INK;
    context.fillRect(0, 0, width, BAND);
    context.textBaseline = 'alphabetic';
    context.fillStyle = '#ffffff';
    context.font = `bold 38px ${FONT}`;
    context.textAlign = 'left';
    context.fillText(title, SIDE, 62);
    context.font = `28px ${FONT}`;
    context.textAlign = 'right';
    context.fillText(date, width - SIDE, 60);

    context.fillStyle = TEXT;
    context.textAlign = 'left';
    drawName(context, name, width - 2 * SIDE, BAND + 10, bottom - BAND - 20);
  }

  sample.drawBadge = drawBadge;

})(window.sample);
