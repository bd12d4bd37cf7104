'use strict';

/*
 * The page's texts in the chosen language. What stands in the document carries
 * data-text, data-label or data-hint; what a script shows goes through show(),
 * or is drawn anew when onChange() tells so.
 */
window.sample = window.sample || {};

(function (sample) {

  const LANGUAGES = ['en', 'de'];

  const labels = new Map();   // id of an element -> the text it shows, as [key, value]
  const followers = [];
  let language = LANGUAGES[0];

  const element = (id) => document.getElementById(id);

  function translate(key, value) {
    const text = sample.texts[language][key];
    return typeof text === 'function' ? text(value) : text;
  }

  // Shows a text that follows the language: the choice is remembered and
  // repeated when the language changes.
  function show(id, key, value) {
    labels.set(id, [key, value]);
    element(id).textContent = translate(key, value);
  }

  function translateAll(attribute, write) {
    document.querySelectorAll(`[data-${attribute}]`).forEach((node) => {
      write(node, translate(node.dataset[attribute]));
    });
  }

  function translatePage() {
    document.documentElement.lang = language;
    translateAll('text', (node, text) => { node.textContent = text; });
    translateAll('label', (node, text) => { node.setAttribute('aria-label', text); });
    translateAll('hint', (node, text) => { node.placeholder = text; });
    labels.forEach(([key, value], id) => show(id, key, value));
    LANGUAGES.forEach((code) => {
      element('language-' + code).setAttribute('aria-pressed', String(code === language));
    });
    followers.forEach((follow) => follow());
  }

  function choose(code) {
    language = code;
    translatePage();
  }

  sample.language = {
    translate,
    show,
    choose,
    translatePage,
    onChange: (follow) => followers.push(follow),
  };

})(window.sample);
