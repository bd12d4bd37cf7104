'use strict';

/*
 * What several parts have in common: sliders, choices, and the table of what a
 * robot read. A scanner reads what people lay on it, and a picture may be among
 * the fields, so values are cut and enter the page as text.
 */
window.sample = window.sample || {};

(function (sample) {

  const MAX_ROWS = 100;
  const MAX_VALUE = 400;   // characters
  const MAX_NAME = 60;     // characters
  const MAX_TOLD = 200;    // characters of an error's text

  const element = (id) => document.getElementById(id);
  const { translate } = sample.language;

  function cut(text, limit) {
    return text.length > limit ? translate('cutText', { text: text.slice(0, limit), length: text.length }) : text;
  }

  // Any value as text: settings may be switches, numbers and lists too.
  function asShown(value) {
    if (value === undefined || value === null || value === '') {
      return '–';
    }
    if (typeof value === 'boolean') {
      return translate(value ? 'yes' : 'no');
    }
    return typeof value === 'string' ? value : JSON.stringify(value);
  }

  // An error's text, short enough for a line of news.
  const told = (value) => cut(sample.values.asText(value).trim(), MAX_TOLD);

  const filled = new Map();   // a table's body -> its rows

  // rows is a list of [name, value].
  function fillTable(body, rows) {
    filled.set(body, rows);
    body.replaceChildren(...rows.slice(0, MAX_ROWS).map(([name, value]) => {
      const row = sample.make('tr', '');
      const head = sample.make('th', '', cut(asShown(name), MAX_NAME));
      head.scope = 'row';
      row.append(head, sample.make('td', '', cut(asShown(value), MAX_VALUE)));
      return row;
    }));
    body.closest('table').hidden = rows.length === 0;
  }

  // The value of the chosen one of several radio buttons.
  function chosen(name) {
    return document.querySelector(`input[name="${name}"]:checked`).value;
  }

  // A slider with its value beside it. onChange(value) comes when it is let go.
  function createSlider(id, onChange = () => {}) {
    const slider = element(id);
    let isHeld = false;

    function draw(text) {
      const part = (slider.value - slider.min) / (slider.max - slider.min);
      slider.style.setProperty('--part', String(part));
      element(`${id}-value`).textContent = text;
    }

    // null: not known yet. Whoever holds the thumb does not lose it.
    function set(value) {
      if (isHeld) {
        return;
      }
      slider.value = String(value === null ? slider.min : value);
      draw(value === null ? '–' : slider.value);
    }

    slider.addEventListener('input', () => {
      isHeld = true;
      draw(slider.value);
    });
    slider.addEventListener('change', () => {
      isHeld = false;
      draw(slider.value);
      onChange(Number(slider.value));
    });
    draw(slider.value);

    return { set, value: () => Number(slider.value) };
  }

  sample.language.onChange(() => filled.forEach((rows, body) => fillTable(body, rows)));

  sample.fields = { asShown, told, fillTable, chosen, createSlider };

})(window.sample);
