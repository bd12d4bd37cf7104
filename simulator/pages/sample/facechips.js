'use strict';

/*
 * The row of faces that the camera sees. It is drawn again many times a second,
 * so a face keeps its chip, and a chip writes only what has changed.
 */
window.sample = window.sample || {};

(function (sample) {

  const MAX_CHIPS = 8;
  const SVG = 'http://www.w3.org/2000/svg';

  const MOUTHS = {
    happy: 'M14 29 Q24 39 34 29',
    sad: 'M15 35 Q24 26 33 35',
    angry: 'M16 34 L32 31',
    surprised: 'M20 32 a4 4 0 1 0 8 0 a4 4 0 1 0 -8 0',
    neutral: 'M16 32 L32 32',
  };

  // Emotions are the robot's own words; those without a mouth look neutral.
  const LOOKS = new Map([
    ['happy', 'happy'], ['happiness', 'happy'], ['joy', 'happy'], ['smile', 'happy'],
    ['sad', 'sad'], ['sadness', 'sad'], ['angry', 'angry'], ['anger', 'angry'],
    ['surprise', 'surprised'], ['surprised', 'surprised'], ['fear', 'surprised'],
  ]);

  function drawing() {
    const svg = document.createElementNS(SVG, 'svg');
    svg.setAttribute('viewBox', '0 0 48 48');
    svg.setAttribute('aria-hidden', 'true');
    svg.setAttribute('class', 'chip-face');
    const part = (tag, attributes) => {
      const node = document.createElementNS(SVG, tag);
      Object.keys(attributes).forEach((key) => node.setAttribute(key, attributes[key]));
      svg.append(node);
      return node;
    };
    part('circle', { cx: 24, cy: 24, r: 22, class: 'chip-skin' });
    part('circle', { cx: 16, cy: 19, r: 3, class: 'chip-eye' });
    part('circle', { cx: 32, cy: 19, r: 3, class: 'chip-eye' });
    const mouth = part('path', { d: MOUTHS.neutral, class: 'chip-mouth' });
    return { svg, mouth };
  }

  function createChip(onChoose) {
    const { svg, mouth } = drawing();
    const node = sample.make('button', 'chip');
    node.type = 'button';
    node.name = 'face';
    const body = sample.make('span', 'chip-body');
    const texts = {
      name: sample.make('b', 'chip-name'),
      about: sample.make('span', 'chip-about'),
      match: sample.make('span', 'chip-match'),
      mark: sample.make('span', 'chip-mark'),
    };
    body.append(texts.name, texts.about, texts.match, texts.mark);
    node.append(svg, body);

    const written = {};   // what the chip shows now
    let key = null;
    node.addEventListener('click', () => onChoose(key));

    function write(what, value, change) {
      if (written[what] !== value) {
        written[what] = value;
        change(value);
      }
    }

    function draw(face) {
      key = face.key;
      Object.keys(texts).forEach((part) => {
        write(part, face[part], (text) => { texts[part].textContent = text; });
      });
      write('look', LOOKS.get(face.emotion.toLowerCase()) || 'neutral',
        (look) => mouth.setAttribute('d', MOUTHS[look]));
      write('tracked', face.isTracked, (on) => node.classList.toggle('is-tracked', on));
      write('chosen', face.isChosen, (on) => node.classList.toggle('is-chosen', on));
      write('selected', face.isSelected, (on) => node.setAttribute('aria-pressed', String(on)));
    }

    return { node, draw };
  }

  // A face to draw is { key, name, about, match, mark, emotion, isTracked,
  // isChosen, isSelected }. onChoose(key) is called when a chip is touched.
  function createFaceChips(row, onChoose) {
    const chips = new Map();   // key -> chip

    function draw(faces) {
      const shown = faces.slice(0, MAX_CHIPS);
      const keys = new Set(shown.map((face) => face.key));
      chips.forEach((chip, key) => {
        if (!keys.has(key)) {
          chip.node.remove();
          chips.delete(key);
        }
      });
      shown.forEach((face, index) => {
        if (!chips.has(face.key)) {
          chips.set(face.key, createChip(onChoose));
        }
        const chip = chips.get(face.key);
        chip.draw(face);
        if (row.children[index] !== chip.node) {
          row.insertBefore(chip.node, row.children[index] || null);
        }
      });
    }

    return { draw };
  }

  sample.createFaceChips = createFaceChips;

})(window.sample);
