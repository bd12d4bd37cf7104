'use strict';

/*
 * Which announced line of the robot is which spoken one. A line often comes
 * twice: as a record of the dialog engine, with a text for the screen, and as
 * the words that the robot begins to speak, in either order. Nothing but the
 * words joins the two, and macros may have changed some of them.
 */
window.sample = window.sample || {};

(function (sample) {

  const MAX_LINES = 8;
  const MAX_AGE = 15000;        // milliseconds between record and speech
  const ENOUGH_IN_COMMON = 0.5;

  function wordsOf(text) {
    return text.toLowerCase().split(/[^\p{L}\p{N}]+/u).filter((word) => word !== '');
  }

  function soundsLike(announced, spoken) {
    if (announced === spoken) {
      return true;
    }
    const words = wordsOf(announced);
    const heard = new Set(wordsOf(spoken));
    const common = words.filter((word) => heard.has(word)).length;
    return words.length > 0 && common / words.length >= ENOUGH_IN_COMMON;
  }

  // A line is { text, shown, bubble, isSpoken, isAnnounced }; its bubble is
  // the caller's to set.
  function createLines() {
    let lines = [];   // oldest first

    function keep(line) {
      lines = lines.concat(Object.assign(line, { time: Date.now() })).slice(-MAX_LINES);
      return line;
    }

    function find(isOpen, text) {
      const now = Date.now();
      lines = lines.filter((line) => now - line.time < MAX_AGE);
      return lines.find((line) => isOpen(line) && line.text === text)
        || lines.find((line) => isOpen(line) && soundsLike(line.text, text));
    }

    // The line that the robot begins to speak.
    function spoken(text) {
      const known = find((line) => !line.isSpoken, text);
      if (known) {
        known.isSpoken = true;
        if (known.shown === known.text) {
          known.shown = text;   // the spoken words have their macros filled in
        }
        return known;
      }
      return keep({ text, shown: text, bubble: null, isSpoken: true, isAnnounced: false });
    }

    // The line of a record of the dialog engine.
    function announced(text, shown) {
      const known = find((line) => !line.isAnnounced, text);
      if (known) {
        known.isAnnounced = true;
        if (shown !== '' && shown !== text) {
          known.shown = shown;
        }
        return known;
      }
      return expected(text, shown);
    }

    // A line that shows nothing before it is spoken.
    function expected(text, shown) {
      return keep({ text, shown: shown || text, bubble: null, isSpoken: false, isAnnounced: true });
    }

    return { spoken, announced, expected };
  }

  sample.createLines = createLines;

})(window.sample);
