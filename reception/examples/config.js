/*
 * A site with a name, people and places of its own. Copied to config.js beside the built page.
 */
window.reception = {
  company: { en: 'Harbour Museum', es: 'Museo del Puerto' },
  language: 'es',
  languages: ['es', 'en'],
  people: [
    {
      name: 'Rosa Prieto',
      department: { en: 'Exhibitions', es: 'Exposiciones' },
      number: '210',
      point: 12,
    },
  ],
  destinations: [
    {
      name: { en: 'Great hall', es: 'Gran sala' },
      point: 12,
      icon: 'place',
      directions: { en: 'Through the blue door.', es: 'Por la puerta azul.' },
    },
  ],
  homePoint: 10,
  services: ['way', 'call', 'talk'],
  idleSeconds: 45,
}
