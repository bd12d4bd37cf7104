'use strict';

/*
 * The sample page: greets, shows the conversation and the questions of the
 * robot, and drives it with a few buttons. It is meant to be copied from.
 */
(function (sample) {

  const SCRIPT_NAME = 'welcome';
  const LANGUAGES = ['en', 'de'];

  const element = (id) => document.getElementById(id);

  let robot = { send() {}, log() {} };   // until the robot core is connected
  let touchCount = 0;

  const conversation = sample.createConversation(element('conversation'), speakerLabel);
  const messages = sample.createMessageList(element('messages'));

  // --- Values from messages ------------------------------------------------

  // Messages come from many programs: what should be a text may be missing or
  // of another type. Only texts and numbers are worth showing.
  function asText(value) {
    if (typeof value === 'number') {
      return String(value);
    }
    return typeof value === 'string' ? value : '';
  }

  function asTexts(value) {
    return Array.isArray(value) ? value.map(asText).filter((text) => text !== '') : [];
  }

  // --- Texts in the chosen language ----------------------------------------

  let language = LANGUAGES[0];
  const labels = new Map();   // id of an element -> the text it shows, as [key, value]

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

  function translatePage() {
    document.documentElement.lang = language;
    document.querySelectorAll('[data-text]').forEach((node) => {
      node.textContent = translate(node.dataset.text);
    });
    document.querySelectorAll('[data-label]').forEach((node) => {
      node.setAttribute('aria-label', translate(node.dataset.label));
    });
    labels.forEach(([key, value], id) => show(id, key, value));
    LANGUAGES.forEach((code) => {
      element('language-' + code).setAttribute('aria-pressed', String(code === language));
    });
  }

  function chooseLanguage(code) {
    language = code;
    translatePage();
    robot.send('system.language.set', { language });
  }

  function speakerLabel(speaker) {
    const label = document.createElement('span');
    label.className = 'for-screen-readers';
    label.dataset.text = speaker === 'robot' ? 'robotSays' : 'userSays';
    label.textContent = translate(label.dataset.text);
    return label;
  }

  // --- Log and statistics --------------------------------------------------

  function writeLog(level, message) {
    robot.send('system.log', { level, message });
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
    robot.send('system.statistic', {
      topic: 'touches',
      data: [`${localTime()};${name};${count}\n`],
    });
  }

  function countTouch(name) {
    touchCount += 1;
    element('touch-count').textContent = String(touchCount);
    writeStatistic(name, touchCount);
  }

  // --- What the robot tells ------------------------------------------------

  function onUserFound({ name }) {
    const text = asText(name);
    show('greeting', text === '' ? 'hello' : 'helloName', text);
    writeLog('info', 'A user has come');   // no name: logs outlive the visit
  }

  function onUserLost() {
    show('greeting', 'hello');
    writeLog('info', 'The user has left');
  }

  function onRobotStarts({ text }) {
    conversation.robotStarts(asText(text));
    element('face').classList.add('is-speaking');
  }

  function onRobotFinishes() {
    conversation.robotFinishes();
    element('face').classList.remove('is-speaking');
  }

  function onUserSaid(attributes) {
    conversation.userSays(asText(attributes.text), attributes.is_finish === true);
  }

  function onInteractionState({ state, Reason: reason }) {
    element('interaction-state').dataset.state = asText(state);
    if (state === 'Interaction') {
      show('interaction-state', 'interactionOn', asText(reason));
    } else if (state === 'NonInteraction') {
      show('interaction-state', 'interactionOff');
    } else {
      show('interaction-state', 'interactionUnknown');
    }
  }

  function onOperatorStatus({ status }) {
    if (typeof status === 'boolean') {
      show('operator-state', status ? 'operatorOn' : 'operatorOff');
    }
  }

  // The drive's numbers are the robot's own codes, so they are shown as numbers.
  function showNumber(id, value) {
    element(id).textContent = asText(value) || '–';
  }

  // A Map and not an object: no topic can hit something inherited.
  const reactions = new Map([
    ['user.has.user', onUserFound],
    ['user.lost.user', onUserLost],
    ['dialog.robot.replic.start', onRobotStarts],
    ['dialog.robot.replic.finish', onRobotFinishes],
    ['dialog.user.said', onUserSaid],
    ['dialog.question.new', onQuestion],
    ['dialog.question.cancel', hideQuestion],
    ['system.interaction.state', onInteractionState],
    ['system.scripts.start.result', ({ result }) => show('script-state', 'scriptResult', asTexts(result).join(', '))],
    ['system.scripts.end', () => show('script-state', 'scriptEnd')],
    ['operator.call.response', ({ response }) => show('operator-state', 'operatorResponse', asText(response))],
    ['operator.control.status', onOperatorStatus],
    ['system.drive.mode', ({ mode }) => showNumber('drive-mode', mode)],
    ['system.drive.status', ({ status }) => showNumber('drive-status', status)],
    ['system.drive.charge', ({ charge }) => showNumber('drive-charge', charge)],
  ]);

  function onMessage(topic, attributes) {
    messages.add(clockTime(), topic || translate('noTopic'), attributes);
    element('message-count').textContent = String(messages.count());
    const react = reactions.get(topic);
    if (react) {
      react(attributes);
    }
  }

  // --- Questions -----------------------------------------------------------

  function onQuestion({ text, answers }) {
    element('question-text').textContent = asText(text);
    element('question-answers').replaceChildren(...asTexts(answers).map(answerButton));
    element('question').hidden = false;
    element('question').scrollIntoView({ block: 'nearest' });
  }

  function answerButton(text) {
    const button = document.createElement('button');
    button.type = 'button';
    button.className = 'primary';
    button.name = 'answer';
    button.textContent = text;
    button.addEventListener('click', () => answerQuestion(text));
    return button;
  }

  function answerQuestion(text) {
    robot.send('dialog.question.answer', { text });
    conversation.userSays(text, true);
    hideQuestion();
  }

  function hideQuestion() {
    element('question').hidden = true;
    element('question-answers').replaceChildren();
  }

  // --- Buttons -------------------------------------------------------------

  function toggleDrawer(open) {
    element('messages-drawer').classList.toggle('is-open', open);
    element('messages-open').setAttribute('aria-expanded', String(open));
    element(open ? 'messages-close' : 'messages-open').focus();
  }

  function onWriteLog() {
    writeLog('info', 'The log button was touched');
    show('log-state', 'logWritten', clockTime());
  }

  const buttons = {
    'language-en': () => chooseLanguage('en'),
    'language-de': () => chooseLanguage('de'),
    'interaction-start': () => robot.send('system.interaction.control', { state: 'Start' }),
    'interaction-stop': () => robot.send('system.interaction.control', { state: 'Stop' }),
    'script-start': () => robot.send('system.scripts.control', { start: SCRIPT_NAME }),
    'script-stop': () => robot.send('system.scripts.control', { stop: true }),
    'operator-call': () => robot.send('operator.call.request', { call: true }),
    'operator-withdraw': () => robot.send('operator.call.request', { call: false }),
    'write-log': onWriteLog,
    'messages-open': () => toggleDrawer(true),
    'messages-close': () => toggleDrawer(false),
  };

  function listenToButtons() {
    Object.keys(buttons).forEach((id) => element(id).addEventListener('click', buttons[id]));

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

  function showFirstState() {
    showConnection('connecting');
    show('greeting', 'hello');
    show('interaction-state', 'interactionUnknown');
    show('script-state', 'scriptUnknown');
    show('operator-state', 'operatorUnknown');
    show('log-state', 'logUnknown');
    translatePage();
  }

  function onConnected(connectedRobot) {
    robot = connectedRobot;
    showConnection('connected');
    element('controls').disabled = false;
    robot.log('The sample page is connected');
    writeLog('info', 'The sample page is connected');
    writeStatistic('connect', touchCount);
    robot.send('system.interaction.control', { state: 'Start' });
  }

  function onNoRobot(error) {
    element('offline-reason').textContent = error.message;
    element('offline').hidden = false;
    element('app').hidden = true;
  }

  showFirstState();
  listenToButtons();
  sample.connect(onMessage).then(onConnected, onNoRobot);

  sample.messageCount = messages.count;

})(window.sample);
