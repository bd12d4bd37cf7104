'use strict';

/*
 * The sample page: joins the views to the robot. Each view names the topics it
 * reacts to and the buttons it serves. It is meant to be copied from.
 */
(function (sample) {

  const FACE_REPORTS = 'face.recognize.info';
  const FACE_REPORTS_LISTED = 1000;   // milliseconds between two in the list

  const element = (id) => document.getElementById(id);
  const { translate, show } = sample.language;

  let robot = { send() {}, log() {} };   // until the robot core is connected
  let touchCount = 0;
  let lastListed = 0;

  const messages = sample.createMessageList(element('messages'));

  // --- What the views share ------------------------------------------------

  function send(topic, attributes) {
    robot.send(topic, attributes);
  }

  function writeLog(level, message) {
    send('system.log', { level, message });
  }

  // Local time, because the robot files statistics by its local date.
  function localTime() {
    const now = new Date();
    return new Date(now - now.getTimezoneOffset() * 60000).toISOString().slice(0, 19);
  }

  const clockTime = () => localTime().slice(11);

  // The robot appends the records to its file as they are: separators and the
  // line break are the page's business.
  function writeStatistic(name, count) {
    send('system.statistic', {
      topic: 'touches',
      data: [`${localTime()};${name};${count}\n`],
    });
  }

  function countTouch(name) {
    touchCount += 1;
    element('touch-count').textContent = String(touchCount);
    writeStatistic(name, touchCount);
  }

  const app = {
    send,
    writeLog,
    clockTime,
    countTouch,
    chooseView: (name) => tabs.choose(name),
    callToView: (name) => tabs.call(name),
  };

  const talk = sample.createTalk(app);
  const people = sample.createPeople(app);
  const faces = sample.createFaces(app, people);
  const recorder = sample.createRecorder(app);
  const views = {
    talk,
    faces,
    people,
    robot: sample.joinParts([sample.createRobot(app), sample.createDrive(app)]),
    devices: sample.createGroup(element('device-tabs'), {
      printer: sample.createPrinter(app),
      dispenser: sample.createDispenser(app),
      passport: sample.createPassportScanner(app),
      document: sample.createDocumentScanner(app),
      keyboard: sample.createKeyboard(app),
      telephone: sample.createTelephone(app),
      mail: sample.createMail(app, recorder),
    }),
    system: sample.createGroup(element('system-tabs'), {
      sound: sample.joinParts([sample.createVolumes(app), sample.createPlayer(app, recorder), recorder]),
      settings: sample.createSettings(app),
      about: sample.createEnvironment(app),
    }),
  };

  const tabs = sample.createTabs(element('tabs'), (name) => {
    if (views[name].onView) {
      views[name].onView();
    }
  });

  // --- Messages ------------------------------------------------------------

  // A Map and not an object: no topic can hit something inherited.
  const reactions = new Map();

  Object.values(views).forEach((view) => view.reactions.forEach(([topic, react]) => {
    reactions.set(topic, (reactions.get(topic) || []).concat(react));
  }));

  function onMessage(topic, attributes) {
    if (isListed(topic)) {
      messages.add(clockTime(), topic || translate('noTopic'), attributes);
    } else {
      messages.addUnlisted();
    }
    element('message-count').textContent = String(messages.count());
    (reactions.get(topic) || []).forEach((react) => react(attributes));
  }

  // The camera reports many times a second; all are counted, few are listed.
  function isListed(topic) {
    if (topic !== FACE_REPORTS) {
      return true;
    }
    const now = Date.now();
    if (now - lastListed < FACE_REPORTS_LISTED) {
      return false;
    }
    lastListed = now;
    return true;
  }

  // --- Buttons -------------------------------------------------------------

  function chooseLanguage(code) {
    sample.language.choose(code);
    send('system.language.set', { language: code });
  }

  const ownButtons = {
    'language-en': () => chooseLanguage('en'),
    'language-de': () => chooseLanguage('de'),
  };

  function listenToButtons() {
    [ownButtons].concat(Object.values(views).map((view) => view.buttons)).forEach((buttons) => {
      Object.keys(buttons).forEach((id) => element(id).addEventListener('click', buttons[id]));
    });

    // One place counts all touches, the answers' buttons included. It listens
    // on the way down, before an answered question takes its buttons away.
    document.addEventListener('click', (event) => {
      const button = event.target.closest('button');
      if (button) {
        countTouch(button.id || button.name);
      }
    }, true);
  }

  // --- Start ---------------------------------------------------------------

  function showConnection(state) {
    element('connection').dataset.state = state;
    show('connection', state);
  }

  function onConnected(connectedRobot) {
    robot = connectedRobot;
    showConnection('connected');
    document.querySelectorAll('fieldset.needs-robot').forEach((group) => { group.disabled = false; });
    robot.log('The sample page is connected');
    writeLog('info', 'The sample page is connected');
    writeStatistic('connect', touchCount);
    send('system.interaction.control', { state: 'Start' });
    Object.values(views).filter((view) => view.start).forEach((view) => view.start());
  }

  function onNoRobot(error) {
    element('offline-reason').textContent = error.message;
    element('offline').hidden = false;
    element('app').hidden = true;
  }

  showConnection('connecting');
  sample.language.translatePage();
  listenToButtons();
  sample.connect(onMessage).then(onConnected, onNoRobot);

  sample.messageCount = messages.count;

})(window.sample);
