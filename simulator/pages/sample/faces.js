'use strict';

/*
 * The view "Faces": whom the camera sees, whom the robot follows, and the
 * choice of a person by a touch.
 */
window.sample = window.sample || {};

(function (sample) {

  const TICK = 1000;        // milliseconds between two looks at the clock
  const SILENCE = 2000;     // milliseconds without a report: the camera sees nobody
  const MARK_TIME = 1500;   // milliseconds that the mark of a touch stays
  const TRAINING_STEPS = 5; // dots of the progress; a robot may report more steps
  const MAX_EMOTION = 40;   // characters
  const TYPE_PERSON = 2;    // type of a face or a match that is in the database

  const element = (id) => document.getElementById(id);
  const { asText, asNumber, asId, asRecords } = sample.values;
  const { translate, show } = sample.language;

  function readMatch(match) {
    return { type: match.type, id: asId(match.id), score: asNumber(match.score) || 0 };
  }

  function readFace(record) {
    const matches = asRecords(record.matches).map(readMatch).filter(({ id }) => id !== null);
    return {
      key: '',
      track: asId(record.id_track),
      id: asId(record.id) || 0,
      type: record.type,
      isTracked: record.is_tracking === true,
      gender: asNumber(record.gender),
      age: asNumber(record.age),
      emotion: asText(record.emotion).slice(0, MAX_EMOTION),
      best: matches.sort((a, b) => b.score - a.score)[0] || null,
      matches,
    };
  }

  // The order of a report is random; by their track the faces keep their places.
  function readReport(info) {
    const faces = asRecords(info).map(readFace);
    faces.sort((a, b) => (a.track || 0) - (b.track || 0));
    faces.forEach((face, index) => {
      const isDouble = index > 0 && faces[index - 1].track === face.track;
      face.key = isDouble ? `${faces[index - 1].key}+` : String(face.track);
    });
    return faces;
  }

  function createFaces(app, people) {
    const chips = sample.createFaceChips(element('faces'), select);
    let report = null;          // the latest one, until it is read
    let lastReportTime = 0;
    let isFrameAsked = false;
    let faces = [];
    let selectedKey = null;     // the face whose chip was touched
    let chosenId = null;        // the person that the robot found under a touch
    let markTimer = null;

    // --- Reports of the camera ---------------------------------------------

    // Reports may come faster than the screen is drawn: the latest one counts.
    function onReport({ info }) {
      report = info;
      lastReportTime = Date.now();
      askForFrame();
    }

    function askForFrame() {
      if (!isFrameAsked && !element('view-faces').hidden) {
        isFrameAsked = true;
        requestAnimationFrame(drawFrame);
      }
    }

    function drawFrame() {
      isFrameAsked = false;
      takeReport();
      draw();
    }

    function takeReport() {
      if (report !== null) {
        faces = readReport(report);
        report = null;
      }
    }

    // Also while another view is in sight: the people seen become known, and
    // when the reports end, nobody is in sight any more.
    function tick() {
      takeReport();
      faces.forEach((face) => {
        [face].concat(face.matches)
          .filter(({ id, type }) => id !== 0 && type === TYPE_PERSON)
          .forEach(({ id }) => people.learn(id));
      });
      if (faces.length > 0 && Date.now() - lastReportTime > SILENCE) {
        faces = [];
        askForFrame();
      }
    }

    // --- Drawing -----------------------------------------------------------

    function draw() {
      chips.draw(faces.map(describe));
      setIfChanged(element('faces-empty'), 'hidden', faces.length > 0);
      const face = selectedFace();
      setIfChanged(element('face-tools'), 'disabled', !face);
      setIfChanged(element('face-selected'), 'textContent',
        face ? nameOf(face) : translate('faceNoneSelected'));
      const isKnown = Boolean(face) && face.id !== 0;
      setIfChanged(element('face-learn'), 'disabled', !isKnown);
      setIfChanged(element('face-forget'), 'disabled', !isKnown);
    }

    function setIfChanged(node, property, value) {
      if (node[property] !== value) {
        node[property] = value;
      }
    }

    function describe(face) {
      const marks = [];
      if (face.isTracked) {
        marks.push(translate('faceTracked'));
      }
      const isChosen = chosenId !== null && chosenId !== 0 && face.id === chosenId;
      if (isChosen) {
        marks.push(translate('faceChosen'));
      }
      return {
        key: face.key,
        name: nameOf(face),
        about: [ageOf(face), emotionOf(face)].filter((text) => text !== '').join(' · '),
        match: face.best ? matchOf(face.best) : translate('faceNoMatch'),
        mark: marks.join(' · '),
        emotion: face.emotion,
        isTracked: face.isTracked,
        isChosen,
        isSelected: face.key === selectedKey,
      };
    }

    function nameOf(face) {
      if (face.id === 0) {
        return translate('faceUnknown');
      }
      return people.nameOf(face.id) || translate('personNumber', face.id);
    }

    function ageOf(face) {
      return face.age === null || face.age <= 0 ? '' : translate('years', Math.round(face.age));
    }

    function emotionOf({ emotion }) {
      return translate('emotions').get(emotion.toLowerCase()) || emotion;
    }

    function matchOf({ id, score }) {
      const name = people.nameOf(id) || translate('personNumber', id);
      return `${name} ${Math.round(score * 100)} %`;
    }

    // --- Choosing ----------------------------------------------------------

    function selectedFace() {
      return faces.find((face) => face.key === selectedKey) || null;
    }

    function select(key) {
      selectedKey = key === selectedKey ? null : key;
      draw();
    }

    function withSelected(act) {
      return () => {
        const face = selectedFace();
        if (face) {
          act(face);
        }
      };
    }

    // The robot's rectangles are in the pixels of the page, like the pointer's.
    function onCameraTouch(event) {
      app.send('system.general.touch', { x: event.clientX, y: event.clientY });
      app.countTouch('camera');
      const area = element('camera').getBoundingClientRect();
      const mark = element('camera-mark');
      mark.style.left = `${event.clientX - area.left}px`;
      mark.style.top = `${event.clientY - area.top}px`;
      mark.hidden = false;
      clearTimeout(markTimer);
      markTimer = setTimeout(() => { mark.hidden = true; }, MARK_TIME);
    }

    // The camera's picture may be as large as the page: then the area is, too.
    function setWholeScreen(isWhole) {
      element('sight').classList.toggle('is-whole', isWhole);
      element('camera-whole').setAttribute('aria-pressed', String(isWhole));
      show('camera-whole', isWhole ? 'back' : 'wholeScreen');
      element('camera-mark').hidden = true;
    }

    function onChosen({ setted_id: id }) {
      chosenId = asId(id);
      showChosen();
      askForFrame();
    }

    function showChosen() {
      if (chosenId === null) {
        show('chosen', 'chosenNobody');
      } else if (chosenId === 0) {
        show('chosen', 'chosenUnknown');
      } else {
        show('chosen', 'chosenPerson', people.nameOf(chosenId) || translate('personNumber', chosenId));
      }
      show('camera-hint', 'cameraHint', chosenId === null ? '' : element('chosen').textContent);
    }

    // --- Control -----------------------------------------------------------

    const control = (attributes) => app.send('face.recognize.control', attributes);

    // The robot does not tell these two states: shown is what was asked last.
    function controlSwitch(key, prefix, on) {
      control({ [key]: on });
      element(`${prefix}-on`).setAttribute('aria-pressed', String(on));
      element(`${prefix}-off`).setAttribute('aria-pressed', String(!on));
    }

    function onTraining({ status }) {
      const step = asNumber(status);
      if (step === null || step < 0) {
        return;
      }
      const dots = Math.max(TRAINING_STEPS, Math.min(step, 20));
      element('training-dots').replaceChildren(...Array.from({ length: dots }, (_, index) => (
        sample.make('i', index < step ? 'is-done' : ''))));
      show('training', 'training', step);
    }

    element('camera').addEventListener('click', onCameraTouch);
    sample.language.onChange(() => {
      draw();
      showChosen();
    });
    people.onChange(() => {
      showChosen();
      askForFrame();
    });
    setInterval(tick, TICK);
    setWholeScreen(false);
    showChosen();
    show('training', 'trainingNone');

    return {
      onView: askForFrame,
      reactions: [
        ['face.recognize.info', onReport],
        ['face.add.status', onTraining],
        ['system.general.setted', onChosen],
      ],
      buttons: {
        'camera-whole': () => setWholeScreen(!element('sight').classList.contains('is-whole')),
        'face-follow': withSelected(({ track }) => control({ tracking_face: track })),
        'face-learn': withSelected(({ id }) => control({ add_face: id })),
        'face-forget': sample.confirmed(
          withSelected(({ id }) => control({ del_face: id })), () => selectedKey),
        'face-new-person': withSelected((face) => people.propose(face)),
        'tracking-on': () => controlSwitch('tracking_auto', 'tracking', true),
        'tracking-off': () => controlSwitch('tracking_auto', 'tracking', false),
        'head-on': () => controlSwitch('head_enabled', 'head', true),
        'head-off': () => controlSwitch('head_enabled', 'head', false),
      },
    };
  }

  sample.createFaces = createFaces;

})(window.sample);
