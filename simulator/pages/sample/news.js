'use strict';

/*
 * What a device has told lately, newest first, in words that follow the language.
 * Devices say several things at once (low paper, and the badge is printed), so
 * one line of state would lose the first.
 */
window.sample = window.sample || {};

(function (sample) {

  const MAX_NEWS = 4;

  // hintKey: the text that stands there until the device tells something.
  // A kind is "good", "bad", "warning", "busy", "note", or "asking": what the
  // page itself says while it waits, and takes back at the next news.
  function createNews(app, box, hintKey) {
    let news = [];   // { item, text, kind, key, value }, newest first

    function add(kind, key, value, time) {
      const text = sample.make('span', 'news-text', sample.language.translate(key, value));
      const item = sample.make('p', `news-item is-${kind}`);
      item.append(text, sample.make('time', 'news-time', time));
      box.prepend(item);
      news.unshift({ item, text, kind, key, value });
    }

    function drop(isDropped) {
      news.filter(isDropped).forEach(({ item }) => item.remove());
      news = news.filter((entry, index) => !isDropped(entry, index));
    }

    function tell(kind, key, value) {
      drop((entry) => entry.kind === 'asking');
      add(kind, key, value, app.clockTime());
      drop((entry, index) => index >= MAX_NEWS);
    }

    sample.language.onChange(() => news.forEach(({ text, key, value }) => {
      text.textContent = sample.language.translate(key, value);
    }));
    add('asking', hintKey, undefined, '');

    return { tell };
  }

  // Some requests get no reply when the robot lacks the device: after limit
  // milliseconds without end() comes onSilence().
  function createWait(limit, onSilence) {
    let timer = null;

    function end() {
      clearTimeout(timer);
      timer = null;
    }

    function begin(extra = 0) {
      end();
      timer = setTimeout(() => {
        timer = null;
        onSilence();
      }, limit + extra);
    }

    return { begin, end };
  }

  sample.createNews = createNews;
  sample.createWait = createWait;

})(window.sample);
